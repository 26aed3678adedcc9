#include "link/identity.h"

#include "text/text.h"

namespace kestrane {
namespace {

constexpr int kSingleMaster = 1;
constexpr int kMultiMaster = 0x61;
constexpr int kHighestID = 0x61;
constexpr int kAnyRelay = 250;
constexpr int kDisplayOffset = 128;
// A reply to the unit type command of just this length comes from a "636".
constexpr std::size_t kLengthOf636 = 65;

struct Model {
    const char* display;
    const char* relay;
    const char* name;
};

// clang-format off
constexpr Model kModels[] = {
    {"3D1", "3A9", "KMD 305TX"}, {"3D1", "3AB", "KMD 306TX"},
    {"3D1", "3A1", "KMD 308TX"}, {"3D1", "3A3", "KMD 309TX"},
    {"3D3", "3A9", "KMD 350TX"}, {"3D3", "3AB", "KMD 353TX"},
    {"3D3", "3A1", "KMD 355TX"}, {"3D3", "3A3", "KMD 356TX"}, {"3D3", "3A5", "KMD 358TX"},
    {"3D9", "3A9", "KMD 359TX"}, {"3D9", "3AB", "KMD 360TX"},
    {"3D9", "3A1", "KMD 363TX"}, {"3D9", "3A3", "KMD 365TX"},
    {"3DB", "3A9", "KMD 366TX"}, {"3DB", "3AB", "KMD 368TX"},
    {"3DB", "3A1", "KMD 369TX"}, {"3DB", "3A3", "KMD 380TX"},
};
// clang-format on

}  // namespace

std::string ModelOf(std::string_view display_code, std::string_view relay_code) {
    for (const Model& model : kModels) {
        if (display_code == model.display && relay_code == model.relay) return model.name;
    }
    return "-";
}

Identity::Identity(MainForm& form, Session& session, Link& link)
    : form_(form), session_(session), link_(link) {
    for (OptionButton& button : form.OptButID) {
        button.on_click = [this, index = button.index()] { OptButID_Click(index); };
    }
    form.network.txtUnitID.on_change = [this] { txtUnitID_Change(); };
    form.network.cmdUnitID.on_click = [this] { cmdUnitID_Click(); };
}

// An operation under way keeps the addresses that it began with, except the settings read, which
// learns them.
void Identity::OptButID_Click(int index) {
    if (learning_) return UseAddress(index);
    link_.WhenIdle([this, index] { UseAddress(index); });
}

void Identity::UseAddress(int index) {
    session_.RelayAddress = index;
    session_.DisplayAddress =
        static_cast<std::uint8_t>(index == kAnyRelay ? kAnyRelay + 1 : index + kDisplayOffset);
}

// Nothing for a text that is not a hexadecimal number as a whole; an empty one counts 0.
std::optional<int> Identity::WantedID() const {
    const std::string& text = form_.network.txtUnitID.Text();
    const bool digits = text.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
    if (!digits || HexNumber(text) > kHighestID) return {};
    return static_cast<int>(HexNumber(text));
}

void Identity::txtUnitID_Change() {
    form_.network.cmdUnitID.SetEnabled(WantedID() && form_.network.fraUnitID.Enabled());
}

// RelayAddress stays: the next command still goes to the old address.
void Identity::cmdUnitID_Click() {
    const auto id = WantedID();
    if (!link_.Connected() || !id) return;
    const Link::Operation operation(link_, "Write Unit ID");
    form_.lblMemoryBlock.SetCaption("Writing unit ID");
    link_.Command(Bytes({session_.RelayAddress, kWriteUnitID}) + session_.UnitSerialBytes +
                  Bytes({*id}));
}

bool Identity::ReadUnitID() {
    form_.lblMemoryBlock.SetCaption("Read Unit ID");
    const auto data = link_.Read(session_.RelayAddress, 0x0000);
    if (!data) return false;
    // Trimmed as a whole before the offsets are taken, so a serial that begins with a blank
    // shifts them.
    const std::string block = Trim(*data);
    session_.UnitSerialBytes = Mid(block, 1, 4);
    const int id = ByteAt(block, 5);
    if (id < 0) return false;
    form_.network.txtUnitID.SetText(HexByte(static_cast<std::uint8_t>(id)));
    const Learning learning(learning_);
    if (id == kMultiMaster) form_.OptButID(kSingleMaster).SetChosen(true);
    if (id <= 4) form_.OptButID(id).SetChosen(true);
    return true;
}

bool Identity::ReadUnitType() {
    form_.lblMemoryBlock.SetCaption("Reading Unit Type.");
    if (!link_.Command(Bytes({session_.DisplayAddress, kReadUnitType}))) return false;
    link_.RemoveReplyEscapes();
    const std::string answer = Mid(session_.ReplyBuffer, 7, 2);
    session_.UnitType = answer == "\xFF\xFF" ? "" : "CMS";
    if (session_.ReplyBuffer.size() == kLengthOf636) session_.UnitType = "636";
    form_.lblMemoryBlock.SetCaption("Reading memory complete.");
    return true;
}

}  // namespace kestrane
