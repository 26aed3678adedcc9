#include "cli/csv_rows.h"

#include <csv.h>

#include <algorithm>

namespace kestrane {
namespace {

class CsvReader {
  public:
    CsvReader() { csv_init(&parser_, CSV_STRICT | CSV_STRICT_FINI); }
    ~CsvReader() { csv_free(&parser_); }
    CsvReader(const CsvReader&) = delete;
    CsvReader& operator=(const CsvReader&) = delete;

    // A line at a time, as the library tells no places and knows no comments.
    CsvRows Read(std::string_view text) {
        while (!text.empty()) {
            ++line_;
            const std::size_t end = text.find('\n');
            const std::string_view line = text.substr(0, end == text.npos ? end : end + 1);
            text.remove_prefix(line.size());
            if (!in_row_ && line.front() == '#') continue;
            if (!in_row_) row_.line = line_;
            in_row_ = true;
            if (csv_parse(&parser_, line.data(), line.size(), OnCell, OnRow, this) != line.size()) {
                return Bad();
            }
        }
        if (csv_fini(&parser_, OnCell, OnRow, this) != 0) return Bad();
        return std::move(result_);
    }

  private:
    static void OnCell(void* text, std::size_t size, void* self) {
        static_cast<CsvReader*>(self)->row_.cells.emplace_back(static_cast<char*>(text), size);
    }

    static void OnRow(int /*end*/, void* self) { static_cast<CsvReader*>(self)->EndRow(); }

    void EndRow() {
        const int line = row_.line;
        const bool empty = std::all_of(row_.cells.begin(), row_.cells.end(),
                                       [](const std::string& cell) { return cell.empty(); });
        if (!empty) result_.rows.push_back(std::move(row_));
        row_ = {line, {}};
        in_row_ = false;
    }

    CsvRows Bad() {
        result_.bad_line = row_.line;
        return std::move(result_);
    }

    csv_parser parser_{};
    CsvRows result_;
    CsvRow row_;
    int line_ = 0;
    bool in_row_ = false;
};

}  // namespace

CsvRows ReadCsv(std::string_view text) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    return CsvReader().Read(text);
}

}  // namespace kestrane
