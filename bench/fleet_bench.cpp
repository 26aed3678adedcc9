// Many units at a time: how much longer a whole read of 50 units takes than that of one, what 200
// units cost in memory, and how long a list of 10,000 units takes to check. The units run in a row
// in one process, kestrane-cli in another.

#include <sys/resource.h>

#include <QTemporaryDir>
#include <algorithm>
#include <chrono>
#include <fstream>
#include <string>

#include "bars.h"
#include "programs.h"

namespace {

using namespace kestrane;
using Clock = std::chrono::steady_clock;

constexpr int kPatience = 60000;

// A row of demo units; the list of them as kestrane-cli takes it.
class UnitRowProcess {
  public:
    UnitRowProcess(int count, const QString& list) {
        process_.start(ProgramPath("kestrane-unit"), {"--count", QString::number(count)});
        std::ofstream file(list.toStdString());
        for (int i = 0; i <= count; ++i) {
            while (!process_.canReadLine() && process_.waitForReadyRead(kPatience)) {
            }
            file << process_.readLine().toStdString();
        }
    }
    ~UnitRowProcess() {
        process_.terminate();
        process_.waitForFinished();
    }

  private:
    QProcess process_;
};

// Seconds of a read of all units in the list, the best of three; a huge number if it fails.
double SecondsOfRead(const QString& list, int parallel) {
    double best = 1e9;
    for (int i = 0; i < 3; ++i) {
        QProcess call;
        const auto begin = Clock::now();
        call.start(ProgramPath("kestrane-cli"), {"read", "network", "--json", "--units", list,
                                                 "--parallel", QString::number(parallel)});
        if (!call.waitForFinished(kPatience) || call.exitCode() != 0) return 1e9;
        best = std::min(best, std::chrono::duration<double>(Clock::now() - begin).count());
    }
    return best;
}

// Seconds until a list whose last line is wrong is refused.
double SecondsOfCheck(const QString& list) {
    std::ofstream file(list.toStdString());
    file << "unit,network.unit_name,network.ip_address\n";
    for (int i = 0; i < 10'000; ++i) {
        file << "10.0." << i / 250 << '.' << i % 250 + 1 << ",Rack " << i << ",10.1." << i / 250
             << '.' << i % 250 + 1 << '\n';
    }
    file << "10.0.0.1\n";
    file.close();
    QProcess call;
    const auto begin = Clock::now();
    call.start(ProgramPath("kestrane-cli"), {"read", "network", "--units", list});
    if (!call.waitForFinished(kPatience) || call.exitCode() != 2) return 1e9;
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

double MostMegabytesOfAChild() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return static_cast<double>(usage.ru_maxrss) / 1024;
}

}  // namespace

int main(int argc, char** argv) {
    QCoreApplication application(argc, argv);
    const QTemporaryDir folder;
    const QString list = folder.filePath("units.csv");
    bool good = true;
    const auto check = [&good](const char* what, const char* unit, double bar, double value) {
        good = Reached({what, unit, Bar::Side::kAtMost, bar}, value) && good;
    };
    check("a list of 10,000 units", "s", 1, SecondsOfCheck(list));
    double one = 0;
    {
        const UnitRowProcess row(1, list);
        one = SecondsOfRead(list, 1);
    }
    {
        const UnitRowProcess row(50, list);
        check("read of 50 units, of one", "ratio", 1.3, SecondsOfRead(list, 50) / one);
    }
    {
        const UnitRowProcess row(200, list);
        check("read of 200 units, 100 at a time", "s", 60, SecondsOfRead(list, 100));
    }
    check("the larger of both processes", "MB", 512, MostMegabytesOfAChild());
    return good ? 0 : 1;
}
