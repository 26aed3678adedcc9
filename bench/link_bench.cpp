// How close the operations come to the pace of the reader's poll: each exchange takes one tick,
// so an operation of N exchanges can't be faster than N ticks. Runs the whole tool against a demo
// unit in a process of its own, and prints measured time / (exchanges x poll interval) for each,
// the better of two runs: the machine's other work only ever adds to it.

#include <QCoreApplication>
#include <chrono>
#include <cstdio>
#include <string>

#include "bars.h"
#include "console/scripted_operator.h"
#include "host/host_services.h"
#include "programs.h"
#include "tool/tool.h"

namespace {

using namespace kestrane;
using Clock = std::chrono::steady_clock;

double Milliseconds(Clock::duration time) {
    return std::chrono::duration<double, std::milli>(time).count();
}

struct Bench {
    HostServices host;
    ScriptedOperator scripted;
    Tool tool{host.With(scripted, scripted, scripted)};
    int failures = 0;

    void Connect(int port) {
        tool.main_form.txtCurrentIPAddress.SetText("127.0.0.1");
        tool.main_form.txtCurrentPort.SetText(std::to_string(port));
        tool.main_form.cmdConnect.on_click();
        while (!tool.main_form.network.cmdReadNetworkSettings.Enabled()) host.loop.Pump();
    }

    // `waits` is what the operation waits for beside its exchanges, in milliseconds.
    void Measure(const char* name, double bar, double waits, const std::function<void()>& run) {
        const int poll = tool.main_form.timGetResponse.Interval();
        const std::string counter = "at " + std::to_string(poll) + " ms";
        double best = 1e9;
        for (int i = 0; i < 2; ++i) {
            const unsigned before = tool.link.FramesSent();
            const auto begin = Clock::now();
            run();
            const double time = Milliseconds(Clock::now() - begin) - waits;
            best = std::min(best, time / ((tool.link.FramesSent() - before) * poll));
        }
        if (!Reached({name, counter, Bar::Side::kAtMost, bar}, best)) ++failures;
    }
};

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const UnitProcess unit;
    if (unit.port() == 0) return 1;
    const int port = unit.port();
    Bench bench;
    Tool& tool = bench.tool;
    MainForm& form = tool.main_form;
    tool.Start();
    for (const double bar : {1.01, 1.01}) {
        bench.Connect(port);
        bench.Measure("settings read", bar, 0, form.network.cmdReadNetworkSettings.on_click);
        bench.Measure("names read", bar, 0, form.names.cmdReadChannelNames.on_click);
        bench.Measure("1-Wire read", bar, 0, form.one_wire.cmdRead1WNames.on_click);
        if (!form.lblMemoryBlock.Caption().ends_with("Complete")) ++bench.failures;
        // After this the reader polls every 10 ms.
        form.cmdDisconnect.on_click();
    }
    bench.Connect(port);
    form.network.cmdReadNetworkSettings.on_click();
    tool.session.MacroChanged = false;
    ScriptEditForm& editor = tool.script_edit_form;
    editor.on_activate = [&] {
        constexpr double kPause = 500;
        bench.Measure("macro download", 1.01, kPause, editor.cmdDownload.on_click);
        bench.Measure("macro upload", 1.01, kPause, editor.cmdUpload.on_click);
        tool.hand.Close(editor);
    };
    form.triggers.cmdEditMacro.on_click();
    return bench.failures == 0 ? 0 : 1;
}
