#include "settings/quad.h"

#include "text/text.h"

namespace kestrane {
namespace {

constexpr double kHighestOctet = 255;

void AppendOctet(double value, std::string& bytes) {
    bytes.push_back(static_cast<char>(RoundHalfEven(value) & 0xFF));
}

}  // namespace

void DecodeQuad(std::string& Quad, std::string& bytReturn, bool& DataValid) {
    DataValid = false;
    bytReturn.clear();
    for (int octet = 1; octet <= 3; ++octet) {
        const auto dot = Quad.find('.');
        if (dot == std::string::npos) return;
        const double value = Val(Quad.substr(0, dot));
        if (value > kHighestOctet || Quad[0] < '0' || Quad[0] > '9') {
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
    if (last > kHighestOctet) {
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
