#include "settings/quad.h"

#include "text/text.h"

namespace kestrane {
namespace {

constexpr double kHighestOctet = 255;

void AppendOctet(double value, std::string& bytes) {
    bytes.push_back(static_cast<char>(RoundHalfEven(value) & 0xFF));
}

// Digits, and a fraction: the last octet takes all that is left, "4.5" for one.
bool IsNumber(std::string_view octet) {
    constexpr char kDigits[] = "0123456789";
    const std::size_t end = octet.find_first_not_of(kDigits);
    if (end == 0 || octet.empty()) return false;
    if (end == std::string_view::npos) return true;
    return octet[end] == '.' && octet.find_first_not_of(kDigits, end + 1) == std::string_view::npos;
}

}  // namespace

void DecodeQuad(std::string& Quad, std::string& bytReturn, bool& DataValid) {
    DataValid = false;
    bytReturn.clear();
    for (int octet = 1; octet <= 3; ++octet) {
        const auto dot = Quad.find('.');
        if (dot == std::string::npos) return;
        const double value = Val(Quad.substr(0, dot));
        if (value > kHighestOctet || !IsNumber(Quad.substr(0, dot))) {
            bytReturn.clear();
            return;
        }
        AppendOctet(value, bytReturn);
        Quad.erase(0, dot + 1);
        if (Quad.empty()) {
            bytReturn.clear();
            return;
        }
    }
    const double last = Val(Quad);
    if (last > kHighestOctet || !IsNumber(Quad)) {
        bytReturn.clear();
        return;
    }
    AppendOctet(last, bytReturn);
    DataValid = true;
}

std::string QuadText(const std::string& bytes) {
    std::string text;
    for (const char c : bytes) {
        if (!text.empty()) text += ".";
        text += std::to_string(static_cast<unsigned char>(c));
    }
    return text;
}

}  // namespace kestrane
