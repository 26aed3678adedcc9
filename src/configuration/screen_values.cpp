#include "configuration/screen_values.h"

#include <algorithm>

#include "configuration/web_levels.h"
#include "link/frame.h"
#include "macro/instruction_set.h"
#include "text/terminal.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr char kNotGivenBack[] = "the unit does not give it back";
constexpr char kHiddenKey[] = "Chaskey is set - type to change key";

// The member of an option group that is chosen, or null.
OptionButton* ChosenOf(MainForm& form, const std::string& group) {
    for (Control* control : form.controls()) {
        if (control->base_name() != group) continue;
        auto* const button = static_cast<OptionButton*>(control);
        if (button->Chosen()) return button;
    }
    return nullptr;
}

std::uint8_t AddressOf(const Setting& setting) {
    return HexValue(setting.key.substr(setting.key.size() - 2));
}

std::string MacroText(const Setting& setting, const MacroMemory& program,
                      const std::string& unit_type) {
    const std::uint8_t at = AddressOf(setting);
    const std::uint8_t opcode = program.Opcode(at);
    const std::uint8_t second = program.SecondByte(at);
    return HexByte(opcode) + " " + HexByte(second) + "  " +
           Trim(CmdDecode(opcode, second, unit_type));
}

ShownValue OfCheckBox(Tool& tool, const Setting& setting, const CheckBox& box) {
    if (setting.key.starts_with("privileges.")) {
        if (tool.session.ConnectedPortIndex == 0) {
            return {{}, "over this connection the rights can't be told"};
        }
        if (!box.Visible()) return {{}, "the port may not read it"};
    }
    if (setting.key.starts_with("security.")) {
        return {SettingValue(StateOfWebLevel(tool, box.index()) == WebLevel::kClosed), {}};
    }
    return {SettingValue(box.Checked()), {}};
}

ShownValue OfText(const Setting& setting, const std::string& text) {
    if (setting.write_only || text == kHiddenKey) return {{}, kNotGivenBack};
    if (setting.kind == SettingKind::kNumber) {
        return {SettingValue(static_cast<long>(IntegerValue(text))), {}};
    }
    const SettingValue value = Normal(setting, SettingValue(text));
    if (const auto fault = CheckValue(setting, value); fault && !setting.read_only) {
        return {value, "it " + *fault};
    }
    return {value, {}};
}

ShownValue OfControl(Tool& tool, const Setting& setting, const Control& control) {
    if (setting.key.starts_with("names.inlet.backup.") && !control.Visible()) {
        return {{}, kNotOnThisUnit};
    }
    switch (control.kind()) {
        case Kind::kTextBox:
            return OfText(setting, static_cast<const TextBox&>(control).Text());
        case Kind::kLabel:
            return OfText(setting, static_cast<const Label&>(control).Caption());
        case Kind::kCheckBox:
            return OfCheckBox(tool, setting, static_cast<const CheckBox&>(control));
        default:
            break;
    }
    const auto& combo = static_cast<const ComboBox&>(control);
    if (combo.ListIndex() < 0) return {{}, "nothing is chosen"};
    return {SettingValue(combo.Items()[static_cast<std::size_t>(combo.ListIndex())]), {}};
}

// A check box that has to be turned while a box is typed into, and turned back.
class Opened {
  public:
    Opened(Tool& tool, CheckBox* opener, bool open) : tool_(tool) {
        if (!opener || opener->Checked() == open || !opener->Usable()) return;
        tool.hand.Click(*opener);
        turned_ = opener;
    }
    ~Opened() {
        if (turned_) tool_.hand.Click(*turned_);
    }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

  private:
    Tool& tool_;
    CheckBox* turned_ = nullptr;
};

CheckBox* OpenerOf(NetworkTab& net, const Control& box) {
    const std::string& name = box.base_name();
    if (box.Usable()) return nullptr;
    if (name == "txtTimeServerIP") return &net.chkTimeServerEnable;
    if (name == "txtTcpControlPort") return &net.chkTcpControlEnable(box.index());
    if (name == "txtForceDisconnect") return &net.chkTcpControlEnable(0);
    return nullptr;
}

Refusal TypeText(Tool& tool, TextBox& box, const std::string& text) {
    CheckBox* const opener = OpenerOf(tool.main_form.network, box);
    // Left ticked, the time server's box stays open: it is no setting.
    const bool stays = opener == &tool.main_form.network.chkTimeServerEnable;
    if (stays) tool.hand.Click(*opener);
    const Opened opened(tool, stays ? nullptr : opener, true);
    Refusal refusal = tool.hand.Type(box, text);
    tool.hand.Leave();
    return refusal;
}

Refusal ChooseInlet(Tool& tool, const Setting& setting, const std::string& caption) {
    for (Control* control : tool.main_form.controls()) {
        if (control->base_name() != setting.control) continue;
        if (static_cast<OptionButton*>(control)->Caption() == caption) {
            return tool.hand.Click(*control);
        }
    }
    return "there is no such inlet";
}

Refusal Put(Tool& tool, Control& control, const SettingValue& value) {
    switch (control.kind()) {
        case Kind::kTextBox: {
            const long* const number = std::get_if<long>(&value);
            return TypeText(tool, static_cast<TextBox&>(control),
                            number ? std::to_string(*number) : std::get<std::string>(value));
        }
        case Kind::kCheckBox: {
            if (static_cast<CheckBox&>(control).Checked() == std::get<bool>(value)) return {};
            Refusal refusal = tool.hand.Click(control);
            tool.hand.Leave();
            return refusal;
        }
        default:
            break;
    }
    auto& combo = static_cast<ComboBox&>(control);
    const auto& items = combo.Items();
    const auto item = std::find(items.begin(), items.end(), std::get<std::string>(value));
    Refusal refusal = tool.hand.Choose(combo, static_cast<int>(item - items.begin()));
    tool.hand.Leave();
    return refusal;
}

// What a text box became of the value: its text as a value of the setting.
std::optional<SettingValue> Standing(Tool& tool, const Setting& setting) {
    Control* const control = tool.main_form.Find(setting.control);
    if (!control) {
        const OptionButton* const chosen = ChosenOf(tool.main_form, setting.control);
        return chosen ? std::optional<SettingValue>(chosen->Caption()) : std::nullopt;
    }
    if (control->kind() == Kind::kCheckBox) return static_cast<CheckBox*>(control)->Checked();
    if (control->kind() == Kind::kTextBox) {
        const std::string& text = static_cast<TextBox*>(control)->Text();
        if (setting.kind != SettingKind::kNumber) return SettingValue(text);
        return SettingValue(static_cast<long>(IntegerValue(text)));
    }
    return OfControl(tool, setting, *control).value;
}

// Red tells a value that can't be written, but on the changeover tab one that is new.
bool IsRed(MainForm& form, const Setting& setting, const Control& control) {
    if (std::string_view(setting.tab) == "changeover") return false;
    // A trigger's box that was emptied stays red, and one that is wrong is emptied.
    if (setting.key.ends_with(".address")) return false;
    if (control.ForeColor() == kRed) return true;
    NetworkTab& net = form.network;
    const std::pair<const TextBox*, const Label*> labelled[] = {
        {&net.txtIPAddress, &net.lblIPAddress},
        {&net.txtSubnetMask, &net.lblSubnetMask},
        {&net.txtDefaultGateway, &net.lblDefaultGateway},
        {&net.txtPrimaryDNS, &net.lblPrimaryDNS},
        {&net.txtSecondaryDNS, &net.lblSecondaryDNS}};
    return std::any_of(std::begin(labelled), std::end(labelled), [&](const auto& row) {
        return row.first == &control && row.second->ForeColor() == kRed;
    });
}

}  // namespace

ShownValue ValueOnScreen(Tool& tool, const Setting& setting, const MacroMemory& program) {
    if (setting.IsMacro()) {
        return {SettingValue(MacroText(setting, program, tool.session.UnitType)), {}};
    }
    Control* const control = tool.main_form.Find(setting.control);
    if (control) return OfControl(tool, setting, *control);
    const OptionButton* const chosen = ChosenOf(tool.main_form, setting.control);
    if (!chosen) return {{}, "nothing is chosen"};
    return {SettingValue(chosen->Caption()), {}};
}

Refusal TypeSetting(Tool& tool, const Setting& setting, const SettingValue& value) {
    const auto refuse = [&](const std::string& why) { return Refusal(setting.key + ": " + why); };
    Control* const control = tool.main_form.Find(setting.control);
    if (setting.key.starts_with("privileges.") && !control->Enabled()) {
        return refuse("the port may not write it");
    }
    const Refusal refusal = control ? Put(tool, *control, value)
                                    : ChooseInlet(tool, setting, std::get<std::string>(value));
    if (refusal) return refuse(*refusal);
    return {};
}

Refusal CheckTyped(Tool& tool, const Setting& setting, const SettingValue& value) {
    const auto standing = Standing(tool, setting);
    const std::string wanted = "\"" + ShownSetting(setting, value) + "\"";
    if (!standing || !SameSetting(setting, *standing, value)) {
        const std::string became = standing ? ShownSetting(setting, *standing) : "nothing";
        return setting.key + ": " + wanted + " is not taken as it stands, it became \"" + became +
               "\"";
    }
    const Control* const control = tool.main_form.Find(setting.control);
    if (control && IsRed(tool.main_form, setting, *control)) {
        return setting.key + ": " + wanted + " is not valid or not complete, it stays red";
    }
    return {};
}

const char* SaveButtonOf(const Setting& setting) {
    if (setting.control == "optInE2P") return "cmdSaveStartup(1)";
    if (setting.control == "optInLive") return "cmdSaveCurrent(1)";
    return setting.live ? "cmdSaveCurrent(0)" : "cmdSaveStartup(0)";
}

}  // namespace kestrane
