// What an operator waits for and what the programs cost while they wait: the calls from start to
// end, and console and windows connected and idle, each a process of its own beside the demo
// unit's. The windows use Qt's platform without a screen.

#include <unistd.h>

#include <QTemporaryDir>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "bars.h"
#include "programs.h"

namespace {

using namespace kestrane;
using Clock = std::chrono::steady_clock;

constexpr int kPatience = 60000;

// The seconds that a call of kestrane-cli takes, the better of two; a huge number if it fails.
double SecondsOfCall(const UnitProcess& unit, QStringList words) {
    words << "--unit" << unit.address() << "--versions-url" << unit.versions_url();
    double best = 1e9;
    for (int i = 0; i < 2; ++i) {
        QProcess call;
        const auto begin = Clock::now();
        call.start(ProgramPath("kestrane-cli"), words);
        if (!call.waitForFinished(kPatience) || call.exitCode() != 0) return 1e9;
        best = std::min(best, std::chrono::duration<double>(Clock::now() - begin).count());
    }
    return best;
}

// The seconds of CPU time that another process has taken so far.
double CpuSecondsOf(qint64 process) {
    double nanoseconds = 0;
    std::ifstream("/proc/" + std::to_string(process) + "/schedstat") >> nanoseconds;
    return nanoseconds * 1e-9;
}

// Sends one line to a console and waits for its answer.
bool Command(QProcess& console, const char* line) {
    console.write(line);
    console.write("\n");
    while (console.waitForReadyRead(kPatience)) {
        while (console.canReadLine()) {
            const QByteArray answer = console.readLine();
            if (answer.startsWith("{\"ok\"")) return answer.startsWith("{\"ok\":true");
        }
    }
    return false;
}

// The share of a core, in percent, that a program takes connected and read, and then left alone
// after `lines`.
double ShareAfter(const UnitProcess& unit, const QString& program, const QStringList& words,
                  const std::vector<const char*>& lines) {
    QProcess console;
    console.start(ProgramPath(program),
                  words + QStringList{"--unit", unit.address(), "--timeout", "3"});
    std::vector<const char*> script = {"click cmdConnect",
                                       "wait cmdReadNetworkSettings.enabled true",
                                       "click cmdReadNetworkSettings"};
    script.insert(script.end(), lines.begin(), lines.end());
    script.push_back("sleep 2000");
    for (const char* line : script) {
        if (!Command(console, line)) return 1e9;
    }
    constexpr double kSeconds = 15;
    const double before = CpuSecondsOf(console.processId());
    usleep(static_cast<useconds_t>(kSeconds * 1e6));
    const double share = 100 * (CpuSecondsOf(console.processId()) - before) / kSeconds;
    Command(console, "quit");
    console.waitForFinished(kPatience);
    return share;
}

// The seconds from a program's start until its first window is painted.
double SecondsToPaint(const QString& program) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_PLUGIN_PATH", QCoreApplication::applicationDirPath());
    environment.insert("QT_QPA_GENERIC_PLUGINS", "first_paint");
    process.setProcessEnvironment(environment);
    const auto begin = Clock::now();
    process.start(ProgramPath(program), QStringList());
    if (!process.waitForFinished(kPatience) || process.exitCode() != 0) return 1e9;
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

// How many times as long the windows take to their first paint as an empty one of Qt's.
double PaintAgainstBareWindow() {
    double windows = 1e9;
    double bare = 1e9;
    for (int i = 0; i < 40; ++i) {
        windows = std::min(windows, SecondsToPaint("kestrane-config"));
        bare = std::min(bare, SecondsToPaint("bare_window"));
    }
    return windows / bare;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const UnitProcess unit;
    if (unit.port() == 0) return 1;
    bool good = true;
    const auto check = [&good](const char* what, const char* unit_of_it, double bar, double value) {
        good = Reached({what, unit_of_it, Bar::Side::kAtMost, bar}, value) && good;
    };
    check("windows, start to first paint", "of an empty one", 1.3, PaintAgainstBareWindow());
    check("read network", "s", 0.25, SecondsOfCall(unit, {"read", "network"}));
    check("read --json, every tab", "s", 2.5, SecondsOfCall(unit, {"read", "--json"}));
    const QTemporaryDir folder;
    const QString file = folder.filePath("unit.mdu.json");
    check("backup", "s", 2.5, SecondsOfCall(unit, {"backup", file}));
    check("diff of two files", "s", 0.02, SecondsOfCall(unit, {"diff", file, file}));
    check("console, connected and idle", "% of a core", 0.6,
          ShareAfter(unit, "kestrane-cli", {"console"}, {}));
    check("windows, connected and idle", "% of a core", 0.7,
          ShareAfter(unit, "kestrane-config", {"--console"}, {}));
    // A loop of many lines, so that the pointer moves with each poll.
    const QString loop = folder.filePath("loop.txt");
    std::ofstream source(loop.toStdString());
    source << "again:\n";
    for (int i = 0; i < 20; ++i) source << "wait 0.3\n";
    source << "goto again\n";
    source.close();
    if (SecondsOfCall(unit, {"macro", "upload", loop}) == 1e9) return 1;
    check("windows, trace of a running macro", "% of a core", 1.5,
          ShareAfter(
              unit, "kestrane-config", {"--console"},
              {"choose SSTab1 4", "click cmdEditMacro", "wait frmScriptEdit.cmdGoTo.enabled true",
               "click frmScriptEdit.chkTrace", "click frmScriptEdit.cmdGoTo"}));
    return good ? 0 : 1;
}
