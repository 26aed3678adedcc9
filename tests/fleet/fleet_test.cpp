#include "cli/fleet.h"

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <QTimer>
#include <chrono>
#include <stdexcept>

#include "cli/fleet_run.h"
#include "cli/report_lines.h"
#include "host/fiber_services.h"
#include "support/qt_wait.h"
#include "unit/unit_server.h"

namespace kestrane {
namespace {

// Units that end in the order of their beginning, each with the status of its place in the text;
// what begins while so many run, as "begun/running".
std::string Course(const std::string& statuses, const FleetPlan& plan, int& status) {
    std::string course;
    Fleet* ask = nullptr;
    std::vector<std::size_t> running;
    Fleet fleet(statuses.size(), plan, [&](std::size_t unit) {
        course += std::to_string(unit) + "/" + std::to_string(ask->Running()) + " ";
        running.push_back(unit);
    });
    ask = &fleet;
    fleet.Start();
    while (!running.empty()) {
        const std::size_t unit = running.front();
        running.erase(running.begin());
        if (statuses[unit] == 's') fleet.Stop();
        if (statuses[unit] == 'c') {
            fleet.Stop();
            fleet.CutOff();
            EXPECT_EQ(fleet.Failed(), 0u);
            EXPECT_EQ(fleet.NotBegun(), statuses.size() - unit);
        } else {
            fleet.Ended(statuses[unit] == 's' ? 0 : statuses[unit] - '0');
        }
    }
    EXPECT_TRUE(fleet.Over());
    status = fleet.ExitStatus();
    return course;
}

TEST(Fleet, BeginsWhatItsPlanAllows) {
    struct Case {
        const char* statuses;
        FleetPlan plan;
        const char* course;
        int status;
    };
    for (const Case& c : {
             Case{"0000", {2, 0, {}}, "0/1 1/2 2/2 3/2 ", 0},
             Case{"01230", {9, 0, {}}, "0/1 1/2 2/3 3/4 4/5 ", 1},
             Case{"0230", {1, 0, {}}, "0/1 1/1 2/1 3/1 ", 2},
             Case{"030", {1, 1, 0}, "0/1 1/1 2/1 ", 3},
             // A trial of two, then the rest; a failure in it ends the run.
             Case{"0000", {9, 2, {}}, "0/1 1/2 2/1 3/2 ", 0},
             Case{"0100", {9, 2, {}}, "0/1 1/2 ", 1},
             Case{"0010", {9, 2, {}}, "0/1 1/2 2/1 3/2 ", 1},
             Case{"00", {9, 5, {}}, "0/1 1/2 ", 0},
             // No failure, or one, is borne.
             Case{"02000", {2, 0, 0}, "0/1 1/2 2/2 ", 1},
             Case{"01010", {1, 0, 1}, "0/1 1/1 2/1 3/1 ", 1},
             Case{"0s00", {1, 0, {}}, "0/1 1/1 ", 1},
             Case{"0c00", {1, 0, {}}, "0/1 1/1 ", 1},
         }) {
        int status = -1;
        EXPECT_EQ(Course(c.statuses, c.plan, status), c.course) << c.statuses;
        EXPECT_EQ(status, c.status) << c.statuses;
    }
}

// Each unit does what the port of its address says.
class ScriptedCall : public Call {
  public:
    const char* name() const override { return "test"; }
    const char* description() const override { return ""; }
    void AddTo(CLI::App&) override {}
    std::unique_ptr<Call> ForUnit(const FleetUnit& unit) const override {
        auto call = std::make_unique<ScriptedCall>(*this);
        call->port_ = *unit.address.port;
        return call;
    }
    bool TakesManyUnits() const override { return true; }
    bool PrintsJson() const override { return json; }

    int Run(CallContext& context) override {
        const Platform& platform = context.tool.link.platform();
        bool over = false;
        const auto timer = platform.timers.NewTimer([&] { over = true; });
        timer->Start(std::chrono::milliseconds(port_ == kSlow ? 60 : 5));
        if (port_ == kEnds) platform.loop.Exit(1);
        if (port_ == kThrows) throw std::runtime_error("thrown");
        Link& link = context.tool.link;
        if (port_ == kWrites) {
            Exchange write;
            write.command = kWriteMemory;
            write.times_sent = 1;
            link.journal().BeginExchange(write);
        }
        while (port_ == kNever || (port_ == kWrites && !link.WritesHeld())) platform.loop.Pump();
        while (!over) platform.loop.Pump();
        context.print("port " + std::to_string(port_));
        if (port_ == kReports) context.report(PlainResult("", "changed", ""));
        return 0;
    }

    enum Port { kPlain = 1, kSlow, kEnds, kThrows, kNever, kReports, kWrites };
    bool json = false;

  private:
    int port_ = 0;
};

class FleetRunTest : public testing::Test {
  protected:
    void Begin(const std::string& ports, std::size_t parallel = 9) {
        FleetJob job;
        for (char port : ports) {
            const std::string name = std::string("h:") + port;
            job.units.push_back({name, {"h", port - '0'}, {}});
        }
        job.plan.parallel = parallel;
        job.call = &call_;
        job.new_lane = [] { return std::make_unique<FiberServices>(); };
        job.print = [this](const std::string& line) { out_ += line + "\n"; };
        job.complain = [this](const std::string& line) { err_ += line + "\n"; };
        job.report = [this](const std::string& line) { report_.push_back(line); };
        run_ = std::make_unique<FleetRun>(std::move(job));
        run_->Start([this] { over_ = true; });
    }
    void RunToTheEnd() {
        EXPECT_TRUE(WaitUntil([this] { return over_; }));
    }

    ScriptedCall call_;
    std::unique_ptr<FleetRun> run_;
    std::string out_, err_;
    std::vector<std::string> report_;
    bool over_ = false;
};

TEST_F(FleetRunTest, PrintsInTheOrderOfTheListAndReportsAsUnitsEnd) {
    Begin("216");
    RunToTheEnd();
    EXPECT_EQ(run_->ExitStatus(), 0);
    EXPECT_EQ(out_, "h:2\n  port 2\nh:1\n  port 1\nh:6\n  port 6\n3 done, 0 failed, 0 not begun\n");
    ASSERT_EQ(report_.size(), 3u);
    EXPECT_EQ(report_[2].substr(0, 30), "{\"unit\":\"h:2\",\"result\":\"done\",");
    EXPECT_NE(report_[0] + report_[1], "");
    EXPECT_NE((report_[0] + report_[1]).find("\"h:6\",\"result\":\"changed\""), std::string::npos);
}

TEST_F(FleetRunTest, NothingThatHappensToOneUnitEndsOthers) {
    Begin("3412", 2);
    RunToTheEnd();
    EXPECT_EQ(run_->ExitStatus(), 1);
    EXPECT_EQ(out_,
              "h:3\n  failed\nh:4\n  failed\nh:1\n  port 1\nh:2\n  port 2\n"
              "2 done, 2 failed, 0 not begun\n");
    EXPECT_EQ(err_, "h:4: failed within: thrown\n");
}

TEST_F(FleetRunTest, AnInterruptLetsWhatWritesEndAndCutsOffTheRest) {
    call_.json = true;
    Begin("5751", 3);
    QTimer::singleShot(10, [this] { run_->Interrupt(); });
    RunToTheEnd();
    EXPECT_EQ(run_->ExitStatus(), 1);
    EXPECT_EQ(report_.size(), 4u);
    std::string all;
    for (const std::string& line : report_) all += line + "\n";
    EXPECT_EQ(out_, all);
    for (const char* line : {"{\"unit\":\"h:5\",\"result\":\"not begun\",\"changes\":[],",
                             "{\"unit\":\"h:7\",\"result\":\"done\",",
                             "{\"unit\":\"h:1\",\"result\":\"not begun\","}) {
        EXPECT_NE(all.find(line), std::string::npos) << line << all;
    }
}

// Real lines: some units behave, the others do not, and each ends by itself.
TEST_F(FleetRunTest, ReadsUnitsWhateverOthersDo) {
    const std::vector<std::string> faults{"",     "refuse", "close", "reset",  "flood",
                                          "deny", "short",  "echo",  "silent", ""};
    std::vector<std::unique_ptr<unit::UnitServer>> servers;
    FleetJob job;
    for (const std::string& fault : faults) {
        unit::ServerOptions options;
        if (!fault.empty()) options.faults = unit::ParseFaults(fault).faults;
        servers.push_back(std::make_unique<unit::UnitServer>(options));
        ASSERT_EQ(servers.back()->Listen().result, unit::UnitServer::Start::kReady);
        const int port = servers.back()->Ports()[0];
        job.units.push_back({fault + std::to_string(port), {"127.0.0.1", port}, {}});
    }
    const auto calls = AllCalls();
    ASSERT_STREQ(calls.front()->name(), "read");
    job.call = calls.front().get();
    CLI::App app;
    job.options.AddTo(app);
    calls.front()->AddTo(app);
    app.parse("--timeout 0.5 network");
    ASSERT_EQ(job.options.Check(), "");
    job.new_lane = [] { return std::make_unique<FiberServices>(); };
    int done = 0;
    job.print = [&](const std::string& line) { done += line.ends_with("Rack 4"); };
    job.complain = [this](const std::string& line) { err_ += line + "\n"; };
    run_ = std::make_unique<FleetRun>(std::move(job));
    run_->Start([this] { over_ = true; });
    RunToTheEnd();
    EXPECT_EQ(done, 2) << err_;
    for (const std::string& fault : faults) EXPECT_NE(err_.find(fault), std::string::npos) << fault;
}

}  // namespace
}  // namespace kestrane
