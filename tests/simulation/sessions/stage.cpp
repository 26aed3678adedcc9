#include "simulation/sessions/stage.h"

#include "unit/board_memory.h"

namespace kestrane::sessions {
namespace {

unit::UnitOptions OptionsOf(unsigned number) {
    unit::UnitOptions options;
    options.number = static_cast<int>(number) + 1;
    return options;
}

bool IsDisplay(int board) { return board == 251 || (board >= 128 && board < 250); }

// The text of a frame without marks and doubling, its checksum last; empty if it is not well
// formed. Written apart from the tool's own, so that they can disagree.
std::string TextOfFrame(std::string_view frame) {
    if (frame.size() < 7 || frame.substr(0, 2) != "\x10\x02") return {};
    if (frame.substr(frame.size() - 2) != "\x10\x03") return {};
    std::string text;
    for (std::size_t i = 2; i + 2 < frame.size(); ++i) {
        // The second of a pair is not the end mark's.
        if (frame[i] == '\x10' && (++i + 2 >= frame.size() || frame[i] != '\x10')) return {};
        text.push_back(frame[i]);
    }
    unsigned sum = 0;
    for (std::size_t i = 0; i + 1 < text.size(); ++i) sum += static_cast<unsigned char>(text[i]);
    return (sum & 0xFF) == static_cast<unsigned char>(text.back()) ? text : std::string();
}

}  // namespace

Stage::Stage() {
    MakeWell();
    world.tcpsend.Attach(this);
    world.loop.set_event_limit(200'000);
    tool.link.journal().AddObserver(*this);
    tool.screen.AddListener(*this);
}

Stage::~Stage() {
    tool.screen.RemoveListener(*this);
    tool.link.journal().RemoveObserver(*this);
    world.tcpsend.Attach(nullptr);
}

void Stage::Forget(unsigned number) {
    units_[number % 2] = std::make_unique<unit::Unit>(OptionsOf(number % 2));
    ++changes_;
}

void Stage::SetRights(unsigned number, int rights) {
    for (std::size_t port = unit::kPrivileges; port < unit::kPrivilegesEnd; port += 2) {
        unit(number).Relay().Set(port, rights);
        unit(number).Display().Set(port, rights);
    }
    ++changes_;
}

void Stage::MakeWell() {
    line_.emplace(world.tcpsend);
    for (const unsigned number : {0, 1}) Forget(number);
    world.tcpsend.set_connect_answer(FakeSocket::ConnectAnswer::kAccept);
    world.tcpsend.set_connect_delay(std::chrono::milliseconds{1});
    world.loop.set_several(nullptr);
    world.boxes.set_while_open(nullptr);
}

void Stage::OnConnect() {
    connected_to_ = world.tcpsend.host() == kHosts[1] ? 1 : 0;
    control_port_ = world.tcpsend.port() == 1244 ? 2 : world.tcpsend.port() == 1245 ? 3 : 1;
    units_[connected_to_]->ForgetPartialFrame(control_port_);
}

void Stage::OnBytes(std::string_view bytes) {
    const std::string text = TextOfFrame(bytes);
    if (text.empty()) throw Broken{"malformed frame: " + HexText(bytes)};
    const auto owner =
        OwnerOf(static_cast<unsigned char>(text[0]), static_cast<unsigned char>(text[1]));
    CheckRepeat(owner, bytes);
    if (text[1] == kReadLiveStatus) ++status_polls_;
    unit::Unit& unit = *units_[connected_to_];
    line_->Send(unit.Receive(control_port_, bytes, world.Now()));
    if (unit.TakeEthernetReset()) world.tcpsend.CloseByPeer(line_->latency());
}

// Each frame belongs to an exchange that is under way on the connection that it goes out on.
std::uint64_t Stage::OwnerOf(int board, int command) const {
    for (auto at = under_way_.rbegin(); at != under_way_.rend(); ++at) {
        const Exchange& exchange = at->second;
        if (exchange.board == board && exchange.command == command &&
            exchange.connection == tool.link.connection()) {
            return exchange.number;
        }
    }
    throw Broken{"frame of another connection: command " + std::to_string(command)};
}

// What already came whole is not asked for again, whatever else the same pump brought after it.
void Stage::CheckRepeat(std::uint64_t exchange, std::string_view frame) {
    const auto [sent, first] = frames_.emplace(exchange, frame);
    if (first || exchange != newest_) return;
    if (first_bytes_.starts_with(frame.substr(0, frame.size() - 3))) {
        throw Broken{"a reply that came first is lost: " + HexText(first_bytes_)};
    }
}

// What is taken for the reply repeats the command. The two that any unit may answer do not.
void Stage::CheckEcho(const Exchange& exchange) const {
    if (!exchange.Accepted() || exchange.command == kWriteUnitID ||
        exchange.command == kReadSerialNumber) {
        return;
    }
    const std::string& frame = frames_.at(exchange.number);
    const bool memory = exchange.IsRead() || exchange.command == kWriteMemory;
    const std::size_t same = memory && !exchange.poll ? frame.size() - 3 : 4;
    if (session.ReplyBuffer.substr(0, same) != frame.substr(0, same)) {
        throw Broken{"a reply to another command is taken: " + HexText(session.ReplyBuffer) +
                     " for " + HexText(frame)};
    }
}

// Of a block that came in part an operation makes nothing, and stops there. A macro download keeps
// what it had of that block and goes on.
void Stage::CheckGoingOn(const Exchange& exchange) const {
    const OperationRecord* operation = tool.link.journal().FindOperation(exchange.operation);
    if (operation && cut_.contains(operation->number) && operation->name != "Download Macro") {
        throw Broken{"an operation goes on after a part of a block: " + operation->name};
    }
}

// A settings read clears names and triggers on the screen.
void Stage::OperationBegan(const OperationRecord& operation) {
    if (operation.name != "Read Network Settings") return;
    std::erase_if(read_, [](const std::pair<int, int>& block) {
        const auto address = static_cast<std::size_t>(block.second);
        return address < unit::display::kSensorNames || address >= unit::display::kTriggers;
    });
}

void Stage::ExchangeBegan(const Exchange& exchange) {
    newest_ = exchange.number;
    under_way_[exchange.number] = exchange;
    changes_before_[exchange.number] = changes_;
    CheckTable(exchange);
    CheckAddress(exchange);
    CheckGoingOn(exchange);
}

void Stage::ExchangeEnded(const Exchange& exchange) {
    if (exchange.Accepted() && exchange.IsRead()) {
        read_.emplace(exchange.connection, exchange.address);
    }
    CheckMemory(exchange);
    CheckWhole(exchange);
    CheckFirst(exchange);
    CheckEcho(exchange);
    if (exchange.IsRead() && exchange.end == Exchange::End::kCorrupted) {
        cut_.insert(exchange.operation);
    }
    frames_.erase(exchange.number);
    under_way_.erase(exchange.number);
    changes_before_.erase(exchange.number);
}

void Stage::ControlChanged(Control& control, Property property) {
    // A rule is broken already, and what has been under way is given up.
    if (std::uncaught_exceptions() > 0) return;
    if (&control == &form.timGetResponse && property == Property::kEnabled) {
        hand_.ReaderStopped();
    }
    if (&control == &form.SSTab1 && property == Property::kIndex) hand_.TabChosen();
    if (&control != &form.Label3 || property != Property::kCaption) return;
    const std::string& caption = form.Label3.Caption();
    if (caption == "*") {
        first_change_.clear();
        first_bytes_.clear();
    } else if (first_change_.empty()) {
        first_change_ = caption;
        if (caption.size() > 1) first_bytes_ = session.ReplyBuffer;
    }
}

// Of bytes and timeout the first decides, whatever else the same pump brings.
void Stage::CheckFirst(const Exchange& exchange) const {
    if (exchange.number != newest_ || first_change_.empty()) return;
    const bool timeout_first = first_change_ == "T";
    if (exchange.end == Exchange::End::kNoAnswer && !timeout_first) {
        throw Broken{"a reply that came first is lost: " + first_change_};
    }
    if (exchange.Accepted() && timeout_first) {
        throw Broken{"a timeout that came first is undone"};
    }
}

// Names, triggers and sensor names are written only where they have been read.
void Stage::CheckTable(const Exchange& exchange) const {
    if (exchange.command != kWriteMemory || !IsDisplay(exchange.board)) return;
    const auto address = static_cast<std::size_t>(exchange.address);
    const bool names =
        address >= unit::display::kChannelNames && address < unit::display::kSysContact;
    const bool triggers =
        address >= unit::display::kTriggers && address < unit::display::kTriggersEnd;
    if ((names || triggers) && !read_.contains({exchange.connection, exchange.address})) {
        throw Broken{"table written unread: address " + std::to_string(exchange.address)};
    }
}

// An operation speaks to one unit from its begin to its end. A settings read learns the address; a
// download reads names and triggers from the address of any unit.
void Stage::CheckAddress(const Exchange& exchange) {
    const OperationRecord* operation = tool.link.journal().FindOperation(exchange.operation);
    if (!operation || operation->name == "Read Network Settings") return;
    if (operation->name == "Download Macro" && exchange.board == 251) return;
    int relay = exchange.board;
    if (relay == 251) relay = 250;
    if (relay >= 128 && relay < 250) relay -= 128;
    const auto [first, fresh] = unit_of_operation_.emplace(operation->number, relay);
    if (first->second != relay) {
        throw Broken{"address changed in the midst: " + operation->name};
    }
}

// What is taken for read has come whole.
void Stage::CheckWhole(const Exchange& exchange) {
    if (!exchange.Accepted() || !exchange.IsRead()) return;
    if (exchange.data.size() < static_cast<std::size_t>(std::max(exchange.count, 0))) {
        throw Broken{"part of a block is taken for read: address " +
                     std::to_string(exchange.address)};
    }
}

// Each error of a line is shown, the second as the first.
void Stage::CheckErrorSeen() {
    constexpr std::chrono::milliseconds kShownByThen{300};
    const int connection = tool.link.connection();
    if (connection == 0 || world.tcpsend.State() != SocketState::kError) {
        error_since_ = {};
    } else if (error_since_.first != connection) {
        error_since_ = {connection, world.Now()};
    } else if (world.Now() - error_since_.second > kShownByThen &&
               form.cmdConnect.BackColor() != kRed) {
        throw Broken{"an error that nobody handles"};
    }
}

// A disconnect has left every other tab disabled, whatever was going on.
void Stage::CheckMoment() {
    CheckErrorSeen();
    if (tool.link.connection() != 0) return;
    const auto& tabs = form.SSTab1.Tabs();
    for (std::size_t tab = 1; tab < tabs.size(); ++tab) {
        if (tabs[tab].enabled) throw Broken{"tab without a connection: " + tabs[tab].caption};
    }
    if (session.AdminLoggedIn) throw Broken{"logged in without a connection"};
}

void Stage::CheckFreshConnection() {
    constexpr std::chrono::milliseconds kSeenByThen{400};
    if (!tool.link.Connected()) {
        fresh_connection_ = 0;
        return;
    }
    if (std::exchange(fresh_connection_, tool.link.connection()) != tool.link.connection()) {
        connected_since_ = world.Now();
    }
    const auto& operations = tool.link.journal().operations();
    if (!operations.empty() && operations.back().connection == fresh_connection_) return;
    const bool usable = network.cmdReadNetworkSettings.Enabled();
    if (world.Now() - connected_since_ > kSeenByThen && !usable && !tool.link.Busy()) {
        throw Broken{"stuck: a new connection can't be read"};
    }
}

// What the journal says of a write is what the unit holds.
void Stage::CheckMemory(const Exchange& exchange) {
    if (exchange.command != kWriteMemory || !exchange.Accepted()) return;
    if (changes_before_[exchange.number] != changes_) return;
    unit::Unit& unit = *units_[connected_to_];
    const auto& memory = IsDisplay(exchange.board) ? unit.Display() : unit.Relay();
    const std::string held =
        memory.Read(static_cast<std::size_t>(exchange.address), exchange.data.size());
    if (held != exchange.data) {
        throw Broken{"accepted write is not there: address " + std::to_string(exchange.address)};
    }
}

}  // namespace kestrane::sessions
