#include "security/web_security.h"

#include <array>
#include <cmath>
#include <string_view>

#include "link/long_operation.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr int kLevels = 3;
constexpr std::size_t kBlockDigits = 2 * kBlockSize;

// On the display board, 16 bytes each:
//
//   02A0   02B0   02C0      02D0
//   salt   View   Control   Admin
//
// A level's block is the first half of SHA-256 over the password and the salt's hexadecimal text,
// or one of the two reserved values. All bytes 0x00: disabled; all bytes 0xFF: no password.
constexpr int kSaltAddress = 0x02A0;

int AddressOf(int level) { return kSaltAddress + kBlockSize * (level + 1); }

constexpr std::string_view kDisabled = "00000000000000000000000000000000";
constexpr std::string_view kOpen = "FFFFFFFFFFFFFFFFFFFFFFFFFFFFFFFF";

std::string BlockOf(const TextBox& digits) {
    return PadRight(HexPairs(Mid(digits.Text(), 1, kBlockDigits)), kBlockSize, '\0');
}

// The data of a read in the reply as it came: the doubled length byte stands before them, and what
// is doubled in them stays so.
constexpr std::size_t kRawMemoryData = kMemoryData + 1;

constexpr int kSpace = 32;
constexpr int kTypesNothing = 1;

std::string BlockProgress(const char* doing, int number, int total) {
    return std::string(doing) + " block " + std::to_string(number) + " of " + std::to_string(total);
}

}  // namespace

WebSecurity::WebSecurity(MainForm& form, Session& session, Link& link)
    : form_(form), tab_(form.security), session_(session), link_(link) {
    tab_.cmdReadWBISettings.on_click = [this] { cmdReadWBISettings_Click(); };
    tab_.cmdWriteWBISettings.on_click = [this] { cmdWriteWBISettings_Click(); };
    for (int level = 0; level < kLevels; ++level) {
        TextBox& password = tab_.txtWebPassword(level);
        password.on_change = [this, level] { txtWebPassword_Change(level); };
        password.on_key_press = [this](int& code) { txtWebPassword_KeyPress(code); };
        CheckBox& disable = tab_.chkWebSecurityDisable(level);
        disable.on_click = [this, level] { chkWebSecurityDisable_Click(level); };
        disable.on_got_focus = [this] { chkWebSecurityDisable_GotFocus(); };
    }
}

void WebSecurity::txtWebPassword_Change(int /*index*/) {
    do {
        HashPasswords(DrawSalt());
    } while (AnyHashReserved());
    for (int level = 0; level < kLevels; ++level) {
        if (!tab_.txtWebPassword(level).Text().empty()) continue;
        const bool disabled = tab_.chkWebSecurityDisable(level).Checked();
        tab_.txtSHA(level).SetText(std::string(disabled ? kDisabled : kOpen));
    }
}

// 0xFF never occurs in a salt. It is meant so.
std::string WebSecurity::DrawSalt() {
    Random& random = link_.platform().random;
    random.Seed();
    std::string salt;
    salt.reserve(kBlockDigits);
    for (int i = 0; i < kBlockSize; ++i) {
        salt += HexByte(static_cast<std::uint8_t>(std::floor(random.Draw() * 255)));
    }
    return salt;
}

// The salt goes in as its text, behind the password.
void WebSecurity::HashPasswords(const std::string& salt) {
    tab_.txtSalt.SetText(salt);
    for (int level = 0; level < kLevels; ++level) {
        const std::string digest = hash_.SHA256FromString(tab_.txtWebPassword(level).Text() + salt);
        tab_.txtSHA(level).SetText(UpperCase(Mid(digest, 1, kBlockDigits)));
    }
}

bool WebSecurity::AnyHashReserved() const {
    for (const std::string_view reserved : {kDisabled, kOpen}) {
        for (const TextBox& hash : tab_.txtSHA) {
            if (hash.Text() == reserved) return true;
        }
    }
    return false;
}

void WebSecurity::chkWebSecurityDisable_Click(int index) {
    TextBox& password = tab_.txtWebPassword(index);
    if (tab_.chkWebSecurityDisable(index).Checked()) {
        password.SetEnabled(false);
        password.SetText("");
        tab_.txtSHA(index).SetText(std::string(kDisabled));
    } else {
        password.SetEnabled(true);
        if (password.Text().empty()) tab_.txtSHA(index).SetText(std::string(kOpen));
    }
    session_.MacroChanged = true;
}

void WebSecurity::txtWebPassword_KeyPress(int& code) {
    if (code == kSpace) {
        link_.platform().sound.Beep();
        code = kTypesNothing;
        return;
    }
    ApplyClearingRule();
    session_.MacroChanged = true;
}

void WebSecurity::chkWebSecurityDisable_GotFocus() { ApplyClearingRule(); }

// The label stands on another tab and nothing hides it, so nothing is emptied. It is meant so.
void WebSecurity::ApplyClearingRule() {
    Label& warning = form_.network.lblPasswordWarn;
    if (!warning.Visible()) {
        for (TextBox& password : tab_.txtWebPassword) password.SetText("");
    }
    warning.SetVisible(true);
}

void WebSecurity::cmdReadWBISettings_Click() {
    if (!link_.Connected()) return;
    const bool could_write = tab_.cmdWriteWBISettings.Enabled();
    const LongOperation operation(form_, link_, "Read Web Security",
                                  {&tab_.cmdReadWBISettings, &tab_.cmdWriteWBISettings},
                                  {&tab_.cmdReadWBISettings});
    bool done = true;
    for (int level = 0; done && level < kLevels; ++level) done = ReadLevel(level);
    if (done) {
        form_.lblMemoryBlock.SetCaption("Reading Web Browser Passwords Complete");
        tab_.fraSecuritySettings.SetEnabled(true);
        // Boxes that were empty and stay so have run no change, and the hidden boxes need values.
        if (AllPasswordsEmpty()) txtWebPassword_Change(0);
    }
    if (!operation.Stale()) tab_.cmdWriteWBISettings.SetEnabled(done || could_write);
    EnableLabels(form_, "fraSecuritySettings");
    for (Label& help : tab_.txtPswHelp) help.SetEnabled(true);
}

bool WebSecurity::ReadLevel(int level) {
    form_.lblMemoryBlock.SetCaption(BlockProgress("Reading", level + 1, kLevels));
    if (!link_.Command(ReadCommand(session_.DisplayAddress, AddressOf(level)))) return false;
    if (DataOfReply(session_.ReplyBuffer, kMemoryData).size() < kBlockSize) return false;
    ShowLevel(level, Mid(session_.ReplyBuffer, kRawMemoryData, kBlockSize));
    return true;
}

// The reserved values are looked for as the characters "F" and "0", so what a write has stored for
// an open or a disabled level shows as a password. It is meant so.
void WebSecurity::ShowLevel(int level, const std::string& stored) {
    const bool open = stored == std::string(kBlockSize, 'F');
    const bool disabled = stored == std::string(kBlockSize, '0');
    tab_.txtWebPassword(level).SetText(open || disabled ? "" : "******");
    tab_.chkWebSecurityDisable(level).SetChecked(disabled);
}

bool WebSecurity::AllPasswordsEmpty() const {
    for (const TextBox& password : tab_.txtWebPassword) {
        if (!password.Text().empty()) return false;
    }
    return true;
}

void WebSecurity::cmdWriteWBISettings_Click() {
    if (!link_.Connected()) return;
    LongOperation operation(form_, link_, "Write Web Security",
                            {&tab_.cmdReadWBISettings, &tab_.cmdWriteWBISettings},
                            {&tab_.cmdReadWBISettings});
    operation.operation().PlanWrites(kLevels + 1);
    if (WriteBlocks()) form_.lblMemoryBlock.SetCaption("Web browser Settings Write Complete.");
    // A disconnect has disabled it for good: a new connection has to read first.
    if (!operation.Stale()) tab_.cmdWriteWBISettings.SetEnabled(true);
}

// All blocks are made before the first is sent: a password typed meanwhile must not get its hash
// beside an older salt.
bool WebSecurity::WriteBlocks() {
    const std::array<std::string, kLevels + 1> blocks{
        BlockOf(tab_.txtSalt), BlockOf(tab_.txtSHA(0)), BlockOf(tab_.txtSHA(1)),
        BlockOf(tab_.txtSHA(2))};
    constexpr int kTotalShown = 5;  // though there are four
    int address = kSaltAddress;
    int number = 0;
    for (const std::string& block : blocks) {
        form_.lblMemoryBlock.SetCaption(BlockProgress("Writing", ++number, kTotalShown));
        if (!link_.Command(WriteCommand(session_.DisplayAddress, address, kBlockSize, block))) {
            return false;
        }
        address += kBlockSize;
    }
    return true;
}

}  // namespace kestrane
