#include "link/supervision.h"

#include <algorithm>
#include <limits>

#include "screen/screen_helpers.h"
#include "text/text.h"

namespace kestrane {
namespace {

using std::chrono::milliseconds;

// After the first disconnect the reader polls faster.
constexpr int kLaterPoll = 10;
constexpr int kDefaultTimeout = 3000;
constexpr milliseconds kErrorShown{1000};

struct StateText {
    SocketState state;
    const char* text;
};

constexpr StateText kStateTexts[] = {
    {SocketState::kClosed, "Socket is closed"},
    {SocketState::kOpen, "Socket is open"},
    {SocketState::kListening, "Socket is listening"},
    {SocketState::kConnectionPending, "Socket connection pending"},
    {SocketState::kResolvingHost, "Socket resolving host"},
    {SocketState::kHostResolved, "Socket host resolved"},
    {SocketState::kConnecting, "Socket is connecting"},
    {SocketState::kConnected, "Socket is connected"},
    {SocketState::kPeerClosing, "Port closed by far end"},
    {SocketState::kError, "Socket error"},
};

const char* TextOf(SocketState state) {
    for (const StateText& row : kStateTexts) {
        if (row.state == state) return row.text;
    }
    return "Socket state unknown";
}

}  // namespace

Supervision::Supervision(MainForm& form, Session& session, Link& link)
    : form_(form), session_(session), link_(link), socket_(link.platform().tcpsend) {
    form.cmdConnect.on_click = [this] { cmdConnect_Click(); };
    form.cmdDisconnect.on_click = [this] { cmdDisconnect_Click(); };
    form.network.cmdResetEthernet.on_click = [this] { cmdResetEthernet_Click(); };
    form.timGetResponse.on_timer = [this] { timGetResponse_Timer(); };
    form.timTimeout.on_timer = [this] { timTimeout_Timer(); };
    form.timDisconnect.on_timer = [this] { timDisconnect_Timer(); };
    link.disconnect = [this] { cmdDisconnect_Click(); };
    for (TextBox* box : {&form.txtCurrentIPAddress, &form.txtCurrentPort, &form.txtTimeout}) {
        box->on_got_focus = [box] { SelectAllText(*box); };
    }
}

void Supervision::timGetResponse_Timer() {
    const SocketState state = socket_.State();
    const bool good = state == SocketState::kClosed || state == SocketState::kConnected;
    form_.lblNotLoggedIn.SetForeColor(good ? kGreen : kRed);
    const int connection = link_.connection();
    ShowState(state);
    // The rest of the tick is about the connection that it has looked at.
    if (link_.connection() != connection) return;
    NetworkTab& network = form_.network;
    if (state == SocketState::kConnected) {
        if (!session_.ReadButtonArmed) network.cmdReadNetworkSettings.SetEnabled(true);
        session_.ReadButtonArmed = true;
    } else {
        network.cmdReadNetworkSettings.SetEnabled(false);
        network.cmdWriteNetworkSettings.SetEnabled(false);
        network.cmdResetEthernet.SetEnabled(false);
    }
    if (socket_.BytesWaiting() > 0) ReadBytes();
}

void Supervision::ShowState(SocketState state) {
    form_.lblNotLoggedIn.SetCaption(TextOf(state));
    switch (state) {
        case SocketState::kClosed:
            form_.cmdConnect.SetCaption("Connect");
            form_.cmdConnect.SetBackColor(kButtonFace);
            break;
        case SocketState::kOpen:
        case SocketState::kListening:
        case SocketState::kConnectionPending:
        case SocketState::kResolvingHost:
        case SocketState::kHostResolved:
            break;
        case SocketState::kConnecting:
            form_.cmdConnect.SetCaption("Connect");
            form_.cmdConnect.SetBackColor(kRed);
            form_.cmdConnect.SetBackColor(kButtonFace);
            break;
        case SocketState::kConnected:
            ShowConnected();
            break;
        case SocketState::kPeerClosing:
            HandlePeerClosed();
            break;
        case SocketState::kError:
            HandleError();
            break;
        default:
            form_.cmdConnect.SetCaption("Connect");
            form_.cmdConnect.SetBackColor(kButtonFace);
            break;
    }
}

// The port in use is recognised by its text, so only once a settings read has filled the boxes.
void Supervision::ShowConnected() {
    std::string caption = "Connected";
    for (int i = 0; i < 3; ++i) {
        if (form_.txtCurrentPort.Text() != form_.network.txtTcpControlPort(i).Text()) continue;
        caption = std::string("Connected Port ") + "ABC"[i];
        session_.ConnectedPortIndex = i + 1;
        break;
    }
    form_.cmdConnect.SetCaption(caption);
    form_.cmdConnect.SetBackColor(kGreen);
    EnableLabels(form_, "fraRelayID");
}

void Supervision::HandlePeerClosed() {
    form_.cmdConnect.SetBackColor(kButtonFace);
    cmdDisconnect_Click();
    form_.cmdDisconnect.SetCaption("Timeout Disconnected");
    form_.cmdDisconnect.SetBackColor(kOrange);
}

// Ticks go on inside the wait and find the same error again: they leave it to the first one. The
// error of another connection is one of its own.
void Supervision::HandleError() {
    const int connection = link_.connection();
    if (error_handled_of_ == connection) return;
    error_handled_of_ = connection;
    form_.cmdConnect.SetCaption("Connect");
    form_.cmdConnect.SetBackColor(kRed);
    link_.platform().sound.Beep();
    link_.MdWait(kErrorShown);
    // The operator may have disconnected, and connected anew, in the meantime.
    if (link_.connection() != connection || socket_.State() != SocketState::kError) return;
    form_.cmdConnect.SetBackColor(kButtonFace);
    cmdDisconnect_Click();
}

void Supervision::ReadBytes() {
    const std::size_t count = socket_.BytesWaiting();
    std::string reply = socket_.Read(count);
    std::string decimal = Str(static_cast<long>(reply.size())) + " bytes received (Decimal) =>  ";
    std::string hexadecimal = Str(static_cast<long>(reply.size())) + " bytes received (Hex) =>  ";
    decimal.reserve(decimal.size() + 4 * reply.size());
    hexadecimal.reserve(hexadecimal.size() + 4 * reply.size());
    for (const char c : reply) {
        const auto byte = static_cast<std::uint8_t>(c);
        decimal += std::to_string(byte) + " ";
        hexadecimal += HexByte(byte) + "  ";
    }
    session_.ReplyBuffer = std::move(reply);
    form_.Label1.SetCaption(std::move(decimal));
    form_.Label3.SetCaption(std::move(hexadecimal));  // ends the wait of SendCommand
    link_.BytesCame();
}

// The interval set here holds from the next command on.
void Supervision::timTimeout_Timer() {
    const double wanted = Val(form_.txtTimeout.Text()) * 1000;
    const double most = std::numeric_limits<int>::max();
    form_.timTimeout.SetInterval(static_cast<int>(RoundHalfEven(std::clamp(wanted, 0.0, most))));
    form_.Label3.SetCaption("T");
    link_.TimedOut();
    form_.timTimeout.SetEnabled(false);
}

void Supervision::cmdConnect_Click() {
    socket_.Close();
    form_.timDisconnect.SetEnabled(false);
    link_.NewConnection();
    socket_.Connect(form_.txtCurrentIPAddress.Text(), IntegerValue(form_.txtCurrentPort.Text()));
    for (Label* label : {&form_.Label1, &form_.Label2, &form_.Label3}) label->SetCaption("*");
    form_.OptButID(250).SetChosen(true);
    form_.fraIPAddress.SetEnabled(false);
    form_.cmdConnect.SetEnabled(false);
    form_.timGetResponse.SetEnabled(true);
    session_.AdminLoggedIn = false;
    session_.UserDisconnected = false;
    session_.LinkIsDown = false;
    form_.cmdDisconnect.SetCaption("Disconnect");
    form_.cmdDisconnect.SetBackColor(kButtonFace);
}

void Supervision::cmdDisconnect_Click() {
    abortCMSOptions(form_);
    form_.timGetResponse.SetEnabled(false);
    form_.timGetResponse.SetInterval(0);
    form_.timGetResponse.SetInterval(kLaterPoll);
    form_.timTimeout.SetEnabled(false);
    form_.timTimeout.SetInterval(0);
    form_.timTimeout.SetInterval(kDefaultTimeout);
    socket_.Close();
    link_.EndConnection();
    session_.UserDisconnected = true;
    form_.cmdConnect.SetEnabled(true);
    form_.cmdConnect.SetCaption("Connect");
    form_.cmdConnect.SetBackColor(kButtonFace);
    form_.lblNotLoggedIn.SetCaption("");
    DisableWhatNeedsALink();
    form_.SSTab1.SetTab(0);
    for (int tab = 1; tab <= session_.LastTabIndex; ++tab) form_.SSTab1.SetTabEnabled(tab, false);
    form_.SSTab1.SetTabVisible(6, false);
    form_.SSTab1.SetTabVisible(7, false);
    session_.ReadButtonArmed = false;
    ClearScreen();
    form_.SetPointer(Form::kArrow);
}

void Supervision::DisableWhatNeedsALink() {
    NetworkTab& net = form_.network;
    for (Button* button :
         {&net.cmdReadNetworkSettings, &net.cmdWriteNetworkSettings,
          &form_.privileges.cmdWriteTCPPortPriv, &form_.security.cmdWriteWBISettings,
          &net.cmdResetEthernet, &form_.names.cmdReadChannelNames,
          &form_.names.cmdWriteChannelNames, &form_.triggers.cmdReadMacroTriggers,
          &form_.triggers.cmdWriteMacroTriggers}) {
        button->SetEnabled(false);
    }
    session_.LinkIsDown = true;
    session_.ChannelNamesRead = false;
    session_.MacroTriggersRead = false;
    session_.OneWireRead = false;
    session_.ChangeoverRead = false;
    for (Frame* frame : SettingsFrames(form_)) frame->SetEnabled(false);
    for (Frame* frame : {&net.fraFixedIPSettings, &form_.names.fraInletNames,
                         &form_.names.fraOutletNames, &form_.triggers.fraMacroTrigger}) {
        frame->SetEnabled(false);
    }
    net.cmdUnitID.SetEnabled(false);
    form_.fraIPAddress.SetEnabled(true);
    session_.AdminLoggedIn = false;
    for (Label* label : {&net.lblObtainIPAddress, &net.lblNetBiosName, &net.lblUnitLocation,
                         &net.lblUnitName, &net.lblOledTimeoutText, &net.lblArmButtonsEnable,
                         &net.lblUnitID, &net.lblIPonOLED, &form_.security.lblWebSecurityEnable}) {
        label->SetEnabled(false);
    }
}

void Supervision::ClearScreen() {
    session_.known = {};
    ClearTextBoxes(form_);
    ClearNameBoxes(form_);
    ClearMacroTriggerRows(form_);
    Clear1WireFields(form_);
    ClearPriviledges(form_);
    ClearWebFields(form_);
    form_.one_wire.lbl1WTotal.SetCaption("");
    for (Label* label : {&form_.changeover.lblDefaultIn, &form_.changeover.lblLockout}) {
        label->SetCaption("");
    }
    DisableLabels(form_);
}

// Built by itself: nothing is doubled, and the frame shown is that of the start-up address.
void Supervision::cmdResetEthernet_Click() {
    if (!link_.Connected()) return;
    const int board = session_.DisplayAddress;
    const Link::Operation operation(link_, "Reset Ethernet");
    link_.SendUnawaited(Bytes({board, kResetEthernet, 0x03, 0x00}),
                        Bytes({kDle, kStx, board, kResetEthernet, 0x03, 0x00,
                               board + kResetEthernet + 0x03, kDle, kEtx}));
    form_.Label2.SetCaption("10 02 FB 1F 03 00 1D 10 03");
    form_.Label1.SetCaption("?");
    form_.Label3.SetCaption("?");
    form_.timDisconnect.SetEnabled(true);
}

}  // namespace kestrane
