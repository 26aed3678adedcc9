#pragma once

// A CSV text as rows of cells (RFC 4180, read by libcsv), each with the line on which it begins.
// Lines that begin with "#" and empty lines are passed over; so is a byte order mark.

#include <string>
#include <string_view>
#include <vector>

namespace kestrane {

struct CsvRow {
    int line = 0;  // from 1
    std::vector<std::string> cells;
};

struct CsvRows {
    std::vector<CsvRow> rows;
    int bad_line = 0;  // where quotes are wrong and the reading ended; 0: nowhere
};

CsvRows ReadCsv(std::string_view text);

}  // namespace kestrane
