#include "configuration/web_levels.h"

#include "link/frame.h"
#include "security/sha_algorithm.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr int kSalt = 0x02A0;

int AddressOf(int level) { return kSalt + kBlockSize * (level + 1); }

bool IsDisplay(int board) { return board == 251 || (board >= 128 && board <= 132); }

// The block as the unit last gave or took it; nothing if what became of a write is not known.
std::optional<std::string> Block(const Tool& tool, int address) {
    const auto& exchanges = tool.link.journal().exchanges();
    for (auto at = exchanges.rbegin(); at != exchanges.rend(); ++at) {
        const bool memory = at->command == kReadMemory || at->command == kWriteMemory;
        if (!memory || at->address != address || !IsDisplay(at->board)) continue;
        if (at->connection != tool.link.connection()) return {};
        if (at->Accepted()) return at->data;
        const bool untouched = at->IsRead() || at->end == Exchange::End::kRefused ||
                               at->end == Exchange::End::kNotSent;
        if (!untouched) return {};
    }
    return {};
}

}  // namespace

WebLevel StateOfWebLevel(const Tool& tool, int level) {
    const auto block = Block(tool, AddressOf(level));
    if (!block) return WebLevel::kUnknown;
    if (*block == std::string(kBlockSize, '\xFF')) return WebLevel::kOpen;
    return *block == std::string(kBlockSize, '\0') ? WebLevel::kClosed : WebLevel::kPassword;
}

std::optional<bool> WebLevelHolds(const Tool& tool, int level, const std::string& password) {
    const WebLevel state = StateOfWebLevel(tool, level);
    if (state == WebLevel::kUnknown) return {};
    if (password.empty()) return state == WebLevel::kOpen;
    if (state != WebLevel::kPassword) return false;
    const auto salt = Block(tool, kSalt);
    if (!salt) return {};
    // The salt goes in as its text, after the password.
    SHAAlgorithm hash;
    const std::string digest = hash.SHA256FromString(password + HexText(*salt));
    return UpperCase(Mid(digest, 1, 2 * kBlockSize)) == HexText(*Block(tool, AddressOf(level)));
}

}  // namespace kestrane
