#include "settings/port_privileges.h"

#include <string>

#include "link/long_operation.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr int kPorts = 3;
constexpr int kRights = 8;

// The rights that the tool itself obeys, by their bits; the others matter to the unit alone.
constexpr int kWriteOwn = 0;
constexpr int kReadOthers = 1;
constexpr int kWriteOthers = 2;

// On both boards, two bytes for each port:
//
//   03E0    03E1  03E2    03E3  03E4    03E5
//   A       FF    B       FF    C       FF
//   rights        rights        rights
constexpr int kPairLength = 2;

int AddressOf(int port) { return 0x03E0 + kPairLength * (port - 1); }

// The rights of a pair. The second byte is not used.
int DecodePair(std::string_view pair) { return ByteAt(pair, 1); }

std::string EncodePair(int rights) { return Bytes({rights, 0xFF}); }

int NextPort(int port) { return port % kPorts + 1; }

}  // namespace

PortPrivileges::PortPrivileges(MainForm& form, Session& session, Link& link)
    : form_(form), tab_(form.privileges), session_(session), link_(link) {
    tab_.cmdReadTCPPortPriv.on_click = [this] { cmdReadTCPPortPriv_Click(); };
    tab_.cmdWriteTCPPortPriv.on_click = [this] { cmdWriteTCPPortPriv_Click(); };
    for (CheckBox& box : tab_.chkPriv) box.on_click = [this] { chkPriv_Click(); };
}

std::array<PortPrivileges::Half, 2> PortPrivileges::Halves() const {
    return {{{session_.RelayAddress, 100, "Reading relay privileges", "Writing relay privileges"},
             {session_.DisplayAddress, 200, "Reading display privileges",
              "Writing display privileges"}}};
}

std::optional<int> PortPrivileges::ConnectedPort() const {
    const int port = session_.ConnectedPortIndex;
    if (port < 1 || port > kPorts) return {};
    return port;
}

CheckBox& PortPrivileges::Box(const Half& half, int port, int bit) {
    return tab_.chkPriv(half.base + 10 * port + bit);
}

Label& PortPrivileges::CurrentByte(const Half& half, int port) {
    return tab_.lblPrivByte(half.base + 10 * port);
}

Label& PortPrivileges::ByteRead(const Half& half, int port) {
    return tab_.lblPrivByte(1000 + half.base + 10 * port);
}

bool PortPrivileges::HasRight(const Half& half, int port, int right) {
    return (IntegerValue(ByteRead(half, port).Caption()) >> right & 1) != 0;
}

// The boxes and the write button stay as they are meanwhile: while that button is enabled, rights
// that imply others do so during the read as well.
void PortPrivileges::cmdReadTCPPortPriv_Click() {
    if (!link_.Connected()) return;
    const LongOperation operation(form_, link_, "Read Port Privileges", {&tab_.cmdReadTCPPortPriv},
                                  {&tab_.cmdReadTCPPortPriv});
    if (ReadAll()) {
        form_.lblMemoryBlock.SetCaption("Privilege read complete");
        tab_.cmdWriteTCPPortPriv.SetEnabled(true);
    }
    EnableLabels(form_, "fraTcpControlSettings");
}

bool PortPrivileges::ReadAll() {
    const auto halves = Halves();
    const auto connected = ConnectedPort();
    for (const Half& half : halves) {
        for (int port = 1; port <= kPorts; ++port) ByteRead(half, port).SetCaption("-");
    }
    for (const Half& half : halves) {
        form_.lblMemoryBlock.SetCaption(half.reading);
        if (!connected || !ReadHalf(half, *connected)) return false;
    }
    return true;
}

// The port of the connection comes first, so that the rights of its byte are known for the others.
bool PortPrivileges::ReadHalf(const Half& half, int connected) {
    int port = connected;
    do {
        // This one goes by the box, which holds what has just been read or is implied by it.
        if (port == connected || Box(half, connected, kReadOthers).Checked()) {
            if (!ReadPort(half, connected, port)) return false;
        } else {
            HideColumn(half, port);
        }
        port = NextPort(port);
    } while (port != connected);
    return true;
}

bool PortPrivileges::ReadPort(const Half& half, int connected, int port) {
    const auto pair = link_.Read(half.board, AddressOf(port), kPairLength);
    if (!pair) return false;
    const int rights = DecodePair(*pair);
    ByteRead(half, port).SetCaption(std::to_string(rights));
    ShowColumn(half, connected, port, rights);
    return true;
}

void PortPrivileges::HideColumn(const Half& half, int port) {
    for (int bit = 0; bit < kRights; ++bit) {
        Box(half, port, bit).SetChecked(false);
        Box(half, port, bit).SetVisible(false);
    }
}

void PortPrivileges::ShowColumn(const Half& half, int connected, int port, int rights) {
    const bool editable = HasRight(half, connected, port == connected ? kWriteOwn : kWriteOthers);
    for (int bit = 0; bit < kRights; ++bit) {
        CheckBox& box = Box(half, port, bit);
        box.SetChecked((rights >> bit & 1) != 0);
        box.SetVisible(true);
        box.SetEnabled(editable);
    }
}

void PortPrivileges::chkPriv_Click() {
    for (const Half& half : Halves()) {
        for (int port = 1; port <= kPorts; ++port) Recount(half, port);
    }
}

void PortPrivileges::Recount(const Half& half, int port) {
    int total = 0;
    for (int bit = 0; bit < kRights; ++bit) {
        if (tab_.cmdWriteTCPPortPriv.Enabled() && Box(half, port, kWriteOthers).Checked()) {
            Box(half, port, kReadOthers).SetChecked(true);
        }
        if (Box(half, port, bit).Checked()) total += 1 << bit;
    }
    CurrentByte(half, port).SetCaption(Str(total));
}

void PortPrivileges::cmdWriteTCPPortPriv_Click() {
    if (!link_.Connected()) return;
    {
        const LongOperation operation(form_, link_, "Write Port Privileges",
                                      {&tab_.cmdReadTCPPortPriv, &tab_.cmdWriteTCPPortPriv},
                                      {&tab_.cmdReadTCPPortPriv});
        const bool written = WriteAll();
        // A disconnect has disabled it for good: a new connection has to read first.
        if (!operation.Stale()) tab_.cmdWriteTCPPortPriv.SetEnabled(true);
        if (!written) return;
        form_.lblMemoryBlock.SetCaption("Privilege write complete");
    }
    cmdReadTCPPortPriv_Click();
}

bool PortPrivileges::WriteAll() {
    const auto connected = ConnectedPort();
    for (const Half& half : Halves()) {
        form_.lblMemoryBlock.SetCaption(half.writing);
        if (!connected || !WriteHalf(half, *connected)) return false;
    }
    return true;
}

// The port of the connection comes last, so that it can't lose its right before the others are
// written. A port that may not be written is passed over without a word.
bool PortPrivileges::WriteHalf(const Half& half, int connected) {
    int port = connected;
    do {
        port = NextPort(port);
        if (!HasRight(half, connected, port == connected ? kWriteOwn : kWriteOthers)) continue;
        const int rights = IntegerValue(CurrentByte(half, port).Caption());
        if (!link_.Command(
                WriteCommand(half.board, AddressOf(port), kPairLength, EncodePair(rights)))) {
            return false;
        }
    } while (port != connected);
    return true;
}

}  // namespace kestrane
