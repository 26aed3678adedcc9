#include "macro/trigger_statement.h"

#include "macro/instruction_set.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr std::size_t kLongestName = 14;

class Reader {
  public:
    explicit Reader(SourceLine& line) : line_(line) {}

    TriggerStatement Read();

  private:
    void Fault(std::size_t at, std::string text) {
        result_.faults.push_back({at, std::move(text)});
    }
    // These are false where nothing sensible can be read after them.
    bool ReadNumber();
    bool ReadName();
    bool ReadPage();
    bool ReadState();
    void ReadAddress();
    void CheckName(std::size_t at);

    SourceLine& line_;
    TriggerStatement result_;
};

TriggerStatement Reader::Read() {
    line_.Skip(std::string_view("trigger").size());
    if (!ReadNumber() || !ReadName() || !ReadPage() || !ReadState()) return std::move(result_);
    ReadAddress();
    if (!line_.AtEnd()) {
        Fault(line_.at(), Quoted(line_.Word()) + " is too much, the trigger ends before it");
    }
    return std::move(result_);
}

bool Reader::ReadNumber() {
    const std::string_view word = line_.Word("\"");
    result_.number_at = line_.at();
    if (word.size() == 1 && word[0] >= '1' && word[0] <= '0' + kTriggerRows) {
        result_.row = word[0] - '1';
    } else {
        Fault(line_.at(), "a trigger has a number from 1 to 8");
    }
    line_.Skip(word.size());
    return result_.row >= 0 || line_.Next() == '"';
}

bool Reader::ReadName() {
    const std::size_t start = line_.at();
    if (line_.Next() != '"') {
        Fault(start, "a name in double quotes is expected here");
        return false;
    }
    for (line_.Take(1); line_.AtEnd() || line_.Next() != '"'; line_.Take(1)) {
        if (line_.AtEnd()) {
            Fault(start, "the name has no closing quote");
            return false;
        }
        if (line_.Next() == '\\') {
            line_.Take(1);
            if (line_.Next() != '"' && line_.Next() != '\\') {
                Fault(line_.at() - 1, "a backslash stands before a quote or a backslash only");
                return false;
            }
        }
        result_.fields.name += line_.Next();
    }
    line_.Take(1);
    if (!line_.AtEnd() && !IsBlank(line_.Next())) {
        Fault(line_.at(), "a blank is expected after the name");
    }
    line_.Skip(0);
    CheckName(start);
    return true;
}

// A name must come back from the file: its line is trimmed there, and one with an apostrophe in
// front would be a comment.
void Reader::CheckName(std::size_t at) {
    const std::string& name = result_.fields.name;
    if (name.size() > kLongestName) {
        Fault(at, "a name has at most 14 characters");
    } else if (name.empty() || name[0] == ' ' || name[0] == '\'') {
        Fault(at,
              "a name that is empty or begins with a blank or an apostrophe can't be read back "
              "from a file; begin it with a letter");
    }
}

bool Reader::ReadPage() {
    if (UpperCase(line_.Word()) != "PAGE") return true;
    line_.Skip(std::string_view("page").size());
    const std::string_view word = line_.Word();
    if (word.size() != 1 || word[0] < '0' || word[0] > '9') {
        Fault(line_.at(), "a page is a number from 0 to 9");
    }
    result_.fields.page = word;
    line_.Skip(word.size());
    return true;
}

bool Reader::ReadState() {
    const std::string_view word = line_.Word();
    result_.fields.enabled = UpperCase(word) == "ENABLED";
    const bool known = result_.fields.enabled || UpperCase(word) == "DISABLED";
    if (!known) Fault(line_.at(), "\"enabled\" or \"disabled\" is expected here");
    line_.Skip(word.size());
    // Where a wrong word ends the trigger, it is the state that is missing and not the address.
    return known || !line_.AtEnd();
}

void Reader::ReadAddress() {
    const std::string_view word = line_.Word();
    if (const auto address = HexPair(word)) {
        if (*address != 0 && !OperandInRange(Operand::kAddress, *address)) {
            Fault(line_.at(), "address " + std::string(word) +
                                  " is out of range, a trigger goes to 10 to 7E, or to 00 if it "
                                  "has no macro");
        }
        result_.fields.address = HexByte(*address);
    } else if (IsLabel(word)) {
        result_.label = word;
        result_.label_at = line_.at();
    } else {
        Fault(line_.at(),
              (word.empty() ? "an address is missing" : Quoted(word) + " is wrong here") +
                  ", a trigger takes a label or two hexadecimal digits");
    }
    line_.Skip(word.size());
}

}  // namespace

TriggerStatement ReadTriggerStatement(SourceLine& line) { return Reader(line).Read(); }

}  // namespace kestrane
