#include "features/firmware.h"

#include "features/versions_page.h"
#include "link/identity.h"
#include "link/long_operation.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr std::size_t kTypeLength = 4;
constexpr std::size_t kSerialLength = 4;
constexpr std::size_t kFirstVersionByte = 9;
constexpr int kBootloaderConfirm = 0x01;

// An undoubled reply to command 0x28:
//
//   1  2  3      4  5 6 7 8  9 10 11
//   10 02 board  28 type     version
struct BoardVersion {
    std::string type_code;  // "3A1", the first digits of the type bytes
    std::string version;    // "1.4.3"
};

std::optional<BoardVersion> DecodeBoardVersion(std::string_view reply) {
    const int bytes[] = {ByteAt(reply, kFirstVersionByte), ByteAt(reply, kFirstVersionByte + 1),
                         ByteAt(reply, kFirstVersionByte + 2)};
    if (bytes[2] < 0) return {};
    return BoardVersion{
        Mid(HexText(Mid(reply, kStatusData, kTypeLength)), 1, 3),
        std::to_string(bytes[0]) + "." + std::to_string(bytes[1]) + "." + std::to_string(bytes[2])};
}

std::string PageUrl(std::string_view root) {
    while (root.ends_with('/')) root.remove_suffix(1);
    return std::string(root) + "/kestraneversions/";
}

}  // namespace

Firmware::Firmware(MainForm& form, Session& session, Link& link, std::string_view versions_url)
    : NetGrab1(link.platform()),
      form_(form),
      tab_(form.firmware),
      session_(session),
      link_(link),
      page_url_(PageUrl(versions_url)) {
    tab_.cmdGetUnitFirmware.on_click = [this] { cmdGetUnitFirmware_Click(); };
    tab_.cmdRelayBootload.on_click = [this] { cmdRelayBootload_Click(); };
    NetGrab1.Complete = [this](std::size_t bytes) { NetGrab1_Complete(bytes); };
    NetGrab1.Failed = [this](int number, const std::string& text) {
        NetGrab1_Failed(number, text);
    };
}

void Firmware::cmdGetUnitFirmware_Click() {
    for (Label* label : {&tab_.lblType, &tab_.lblSerialNo, &tab_.lblRelayVersion,
                         &tab_.lblRelayLatest, &tab_.lblDisplayVersion, &tab_.lblDisplayLatest}) {
        label->SetCaption("-");
    }
    if (!link_.Connected()) return;
    Frame& options = form_.changeover.fraChangeoverOptions;
    Frame& inlet = form_.changeover.fraDefaultInlet;
    Button& reset = form_.network.cmdResetEthernet;
    const LongOperation operation(form_, link_, "Read Firmware Versions",
                                  {&options, &inlet, &tab_.cmdGetUnitFirmware, &reset}, {});
    if (ReadAll()) form_.lblMemoryBlock.SetCaption("Reading Unit Firmware Complete");
    if (session_.AdminLoggedIn) {
        options.SetEnabled(true);
        inlet.SetEnabled(true);
        tab_.cmdGetUnitFirmware.SetEnabled(true);
        reset.SetEnabled(true);
    }
    EnableLabels(form_, "fraFirmwareUpdate");
}

bool Firmware::ReadAll() {
    if (!ReadBoards()) return false;
    form_.lblMemoryBlock.SetCaption("Getting latest Firmware versions");
    FetchVersions();
    return true;
}

bool Firmware::ReadBoards() {
    form_.lblMemoryBlock.SetCaption("Reading Relay Version");
    const auto relay_code = ReadBoard(session_.RelayAddress, tab_.lblRelayVersion);
    if (!relay_code) return false;
    relay_code_ = *relay_code;
    form_.lblMemoryBlock.SetCaption("Reading Display Version");
    const auto display_code = ReadBoard(session_.DisplayAddress, tab_.lblDisplayVersion);
    if (!display_code) return false;
    display_code_ = *display_code;
    tab_.lblType.SetCaption(ModelOf(display_code_, relay_code_));
    form_.lblMemoryBlock.SetCaption("Reading Serial Number");
    return ReadSerialNumber();
}

std::optional<std::string> Firmware::ReadBoard(int board, Label& version) {
    if (!link_.Command(Bytes({board, kReadFirmwareVersion}))) return {};
    link_.RemoveReplyEscapes();
    const auto read = DecodeBoardVersion(session_.ReplyBuffer);
    if (!read) return {};
    version.SetCaption(read->version);
    return read->type_code;
}

bool Firmware::ReadSerialNumber() {
    if (!link_.Command(Bytes({session_.RelayAddress, kReadSerialNumber}))) return false;
    link_.RemoveReplyEscapes();
    const std::string bytes = Mid(session_.ReplyBuffer, kStatusData, kSerialLength);
    if (bytes.size() < kSerialLength) return false;
    const std::string serial = HexText(bytes);
    const std::string& model = tab_.lblType.Caption();
    // "KMD 305TX" gives KMD, 3 and 5.
    tab_.lblSerialNo.SetCaption(Mid(model, 1, 3) + Mid(model, 5, 1) + Mid(model, 7, 1) +
                                Mid(serial, 4));
    return true;
}

void Firmware::FetchVersions() {
    tab_.Label8.SetCaption("");
    form_.lblMemoryBlock.SetCaption("");
    fetch_connection_ = link_.connection();
    NetGrab1.DownloadStart(page_url_, NetGrab::kForcedRefresh);
}

// At the program's end the socket is closed before anything else.
bool Firmware::FetchIsWanted() const {
    return link_.Connected() && link_.connection() == fetch_connection_;
}

void Firmware::NetGrab1_Complete(std::size_t nBytes) {
    if (!FetchIsWanted()) return;
    const auto entries = EntriesOf(NetGrab1.Bytes());
    tab_.lblRelayLatest.SetCaption(LatestRelayVersion(entries, relay_code_));
    tab_.lblDisplayLatest.SetCaption(LatestDisplayVersion(entries, display_code_));
    // There is no speed over no time: the handling ends before its last line then.
    if (NetGrab1.Duration() == 0) return;
    form_.lblMemoryBlock.SetCaption(DownloadSummary(nBytes, NetGrab1.Duration()));
}

void Firmware::NetGrab1_Failed(int /*ErrNum*/, const std::string& /*ErrDesc*/) {
    if (!FetchIsWanted()) return;
    form_.lblMemoryBlock.SetCaption("Remote Download failed ");
    tab_.lblRelayLatest.SetCaption("-");
    tab_.lblDisplayLatest.SetCaption("-");
    link_.platform().sound.Beep();
}

void Firmware::cmdRelayBootload_Click() {
    if (!link_.Connected()) return;
    const Link::Operation operation(link_, "Enter Relay Bootloader");
    form_.SetPointer(Form::kHourglass);
    form_.lblMemoryBlock.SetCaption("Sending Relay Bootload");
    // The pairs of the serial number as it is shown; letters that are no digits count 0.
    std::string serial;
    for (const std::size_t pair : {1, 3, 5, 7}) {
        serial += static_cast<char>(HexNumber(Mid(tab_.lblSerialNo.Caption(), pair, 2)) & 0xFF);
    }
    link_.Command(Bytes({session_.RelayAddress, kEnterBootloader}) + serial +
                  Bytes({kBootloaderConfirm}));
    if (!operation.Stale()) link_.RemoveReplyEscapes();
    form_.SetPointer(Form::kArrow);
}

}  // namespace kestrane
