#include "settings/field_editors.h"

#include <algorithm>

#include "screen/screen_helpers.h"
#include "settings/quad.h"
#include "text/text.h"

namespace kestrane {
namespace {

constexpr long kLongestOledTimeout = 2540;
constexpr double kHighestFirstOctet = 223;

bool IsDigit(int code) { return code >= '0' && code <= '9'; }

// The cursor keys 37 to 40 are accepted by code, and with them the characters % & ' (.
bool IsEditing(int code) {
    return code == 8 || code == 9 || code == 12 || (code >= 37 && code <= 40);
}

Colour Good(bool good) { return good ? kBlack : kRed; }

}  // namespace

bool QuadKey(int code) { return IsDigit(code) || code == '.' || IsEditing(code); }

bool NumberKey(int code) { return IsDigit(code) || IsEditing(code); }

bool NetbiosKey(int code) {
    return IsDigit(code) || (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z') ||
           code == '-' || code == '_' || code == '.' || code == 8 || code == 9 || code == 12 ||
           code == 37 || code == 39;
}

bool CommunityKey(int code) { return (code >= 32 && code <= 126) || code == 8; }

void FilterKeys(TextBox& box, bool (*accepts)(int code), Sound& sound) {
    box.on_key_press = [accepts, &sound](int& code) {
        if (accepts(code)) return;
        code = 0;
        sound.Beep();
    };
}

FieldEditors::FieldEditors(MainForm& form, Session& session, Link& link)
    : form_(form), tab_(form.network), session_(session), link_(link) {
    Sound& sound = link.platform().sound;
    for (TextBox* box : {&tab_.txtIPAddress, &tab_.txtSubnetMask, &tab_.txtDefaultGateway,
                         &tab_.txtPrimaryDNS, &tab_.txtSecondaryDNS, &tab_.txtTimeServerIP}) {
        FilterKeys(*box, QuadKey, sound);
    }
    FilterKeys(tab_.txtOledTimeout, NumberKey, sound);
    FilterKeys(tab_.txtNetbiosName, NetbiosKey, sound);
    FilterKeys(tab_.txtCommunity, CommunityKey, sound);

    for (TextBox* box :
         {&tab_.txtIPAddress, &tab_.txtSubnetMask, &tab_.txtDefaultGateway, &tab_.txtPrimaryDNS,
          &tab_.txtSecondaryDNS, &tab_.txtTimeServerIP, &tab_.txtNetbiosName, &tab_.txtUnitName,
          &tab_.txtUnitLocation, &tab_.txtSysContact, &tab_.txtCommunity, &tab_.txtOledTimeout}) {
        box->on_got_focus = [box] { SelectAllText(*box); };
    }

    tab_.txtIPAddress.on_change = [this] { txtIPAddress_Change(); };
    const std::pair<TextBox*, Label*> quads[] = {{&tab_.txtSubnetMask, &tab_.lblSubnetMask},
                                                 {&tab_.txtDefaultGateway, &tab_.lblDefaultGateway},
                                                 {&tab_.txtPrimaryDNS, &tab_.lblPrimaryDNS},
                                                 {&tab_.txtSecondaryDNS, &tab_.lblSecondaryDNS}};
    for (const auto& [box, label] : quads) {
        box->on_change = [this, box = box, label = label] { CheckQuad(*box, *label); };
    }
    tab_.txtIPAddress.on_validate = [this] { txtIPAddress_Validate(); };
    tab_.txtNetbiosName.on_validate = [this] { txtNetbiosName_Validate(); };
    tab_.txtOledTimeout.on_lost_focus = [this] { txtOledTimeout_LostFocus(); };
    tab_.chkDHCP.on_click = [this] { chkDHCP_Click(); };
    tab_.chkTimeServerEnable.on_click = [this] { chkTimeServerEnable_Click(); };
}

void FieldEditors::CheckQuad(const TextBox& box, Label& label, bool in_address_range) {
    std::string quad = box.Text();
    std::string bytes;
    DecodeQuad(quad, bytes, session_.DataValid);
    if (!in_address_range) session_.DataValid = false;
    label.SetForeColor(Good(session_.DataValid));
    CheckFrame();
}

// The unit's own address must begin with 1 to 223.
void FieldEditors::txtIPAddress_Change() {
    session_.IPChanged = 1;
    const std::string& text = tab_.txtIPAddress.Text();
    bool in_range = true;
    const auto dot = text.find('.');
    if (dot != std::string::npos) {
        const double first = Val(text.substr(0, dot));
        in_range = first != 0 && first <= kHighestFirstOctet;
    }
    CheckQuad(tab_.txtIPAddress, tab_.lblIPAddress, in_range);
}

void FieldEditors::CheckFrame() {
    const Label* labels[] = {&tab_.lblIPAddress, &tab_.lblSubnetMask, &tab_.lblDefaultGateway,
                             &tab_.lblPrimaryDNS, &tab_.lblSecondaryDNS};
    const bool all_good = std::all_of(std::begin(labels), std::end(labels), [](const Label* l) {
        return l->ForeColor().value_or(kBlack) == kBlack;
    });
    tab_.fraFixedIPSettings.SetForeColor(Good(all_good));
}

void FieldEditors::txtIPAddress_Validate() {
    if (session_.IPChanged == 1) {
        link_.platform().boxes.Show(
            "Unit IP Address Changed",
            "Don't forget to update the address in the Unit IP Address frame above, after you "
            "have written the settings and reset the Ethernet board in the unit.",
            {BoxButton::kOk});
    }
    session_.IPChanged = 0;
}

void FieldEditors::txtNetbiosName_Validate() {
    tab_.txtNetbiosName.SetText(UpperCase(tab_.txtNetbiosName.Text()));
}

void FieldEditors::txtOledTimeout_LostFocus() {
    const long seconds = IntegerValue(tab_.txtOledTimeout.Text());
    const long tens = (seconds + 9) / 10 * 10;
    tab_.txtOledTimeout.SetText(std::to_string(std::min(tens, kLongestOledTimeout)));
}

void FieldEditors::chkDHCP_Click() {
    Label* const labels[] = {&tab_.lblIPAddress, &tab_.lblSubnetMask, &tab_.lblDefaultGateway,
                             &tab_.lblPrimaryDNS, &tab_.lblSecondaryDNS};
    if (!tab_.chkDHCP.Checked()) {
        for (Label* label : labels) label->SetEnabled(true);
    }
    if (!session_.UserDisconnected) return;
    tab_.fraFixedIPSettings.SetEnabled(false);
    for (Label* label : labels) label->SetEnabled(false);
}

void FieldEditors::chkTimeServerEnable_Click() {
    const bool editable = tab_.chkTimeServerEnable.Checked();
    tab_.txtTimeServerIP.SetEnabled(editable);
    tab_.lblTimeServerIP.SetEnabled(editable);
}

}  // namespace kestrane
