#pragma once

// The stage of a story: the tool, two units, and the line between, each frame of which is looked
// at. Rules that hold at every moment are watched here.

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "simulation/sessions/broken.h"
#include "simulation/sessions/watched_hand.h"
#include "support/tool_on_line.h"
#include "unit/unit.h"

namespace kestrane::sessions {

class Stage : public ToolOnLine, private Peer, private JournalObserver, private ScreenListener {
  public:
    static constexpr const char* kHosts[] = {"192.168.10.100", "192.168.10.101"};

    Stage();
    ~Stage() override;

    ReplyLine& line() { return *line_; }
    unit::Unit& unit(unsigned number) { return *units_[number % 2]; }
    // The unit is as it came from the factory.
    void Forget(unsigned number);
    // What each of its ports may do.
    void SetRights(unsigned number, int rights);
    // What holds between events, whatever has happened.
    void CheckMoment();
    WatchedHand& hand() { return hand_; }
    // A connection that nothing has been done on yet lets its settings be read.
    void CheckFreshConnection();
    // The live status commands that the units have got.
    int status_polls() const { return status_polls_; }
    // No fault any more, and all units as they came.
    void MakeWell();

  private:
    void OnConnect() override;
    void OnBytes(std::string_view bytes) override;
    void OperationBegan(const OperationRecord& operation) override;
    void ExchangeBegan(const Exchange& exchange) override;
    void ExchangeEnded(const Exchange& exchange) override;
    void ControlChanged(Control& control, Property property) override;
    void CheckFirst(const Exchange& exchange) const;
    std::uint64_t OwnerOf(int board, int command) const;
    void CheckRepeat(std::uint64_t exchange, std::string_view frame);
    void CheckEcho(const Exchange& exchange) const;
    void CheckGoingOn(const Exchange& exchange) const;
    void CheckErrorSeen();
    void CheckTable(const Exchange& exchange) const;
    void CheckAddress(const Exchange& exchange);
    static void CheckWhole(const Exchange& exchange);
    void CheckMemory(const Exchange& exchange);

    WatchedHand hand_{*this};
    std::array<std::unique_ptr<unit::Unit>, 2> units_;
    std::optional<ReplyLine> line_;
    unsigned connected_to_ = 0;
    int control_port_ = 1;
    int fresh_connection_ = 0;
    std::chrono::milliseconds connected_since_{};
    int changes_ = 0;  // of the units' memory by anything but the line
    int status_polls_ = 0;
    std::string first_change_;                                 // of Label3 since the last frame
    std::string first_bytes_;                                  // that it told of
    std::pair<int, std::chrono::milliseconds> error_since_{};  // of a connection
    std::uint64_t newest_ = 0;                                 // exchange
    std::map<std::uint64_t, Exchange> under_way_;
    std::map<std::uint64_t, std::string> frames_;  // of those under way
    std::set<std::uint64_t> cut_;                  // operations that got a part of a block
    std::map<std::uint64_t, int> changes_before_;
    std::map<std::uint64_t, int> unit_of_operation_;  // the relay address of its first exchange
    // Blocks of the tables that this connection has read, by connection and address.
    std::set<std::pair<int, int>> read_;
};

}  // namespace kestrane::sessions
