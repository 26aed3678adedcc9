// kestrane-unit: a demo unit on its own, or a row of them.

#include <sys/resource.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QNetworkProxy>
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <string>

#include "host/descriptors.h"
#include "host/input_lines.h"
#include "host/output_lines.h"
#include "host/signal_watch.h"
#include "program_options.h"
#include "unit_row.h"

namespace {

using kestrane::unit::ProgramOptions;
using kestrane::unit::UnitRow;
using kestrane::unit::UnitServer;

void Complain(const std::string& line) {
    std::fprintf(stderr, "kestrane-unit: %s\n", line.c_str());
}

// Takes as many file handles as the system gives, and says how many control connections a unit
// may then hold so that its versions page can still be had.
std::size_t MostConnections() {
    constexpr rlim_t kOfTheProgram = 24;
    constexpr rlim_t kEnough = 64;
    rlimit handles{};
    if (getrlimit(RLIMIT_NOFILE, &handles) != 0) return kEnough;
    handles.rlim_cur = handles.rlim_max;
    setrlimit(RLIMIT_NOFILE, &handles);
    getrlimit(RLIMIT_NOFILE, &handles);
    if (handles.rlim_cur < kOfTheProgram) return 1;
    return std::clamp<rlim_t>((handles.rlim_cur - kOfTheProgram) / 2, 1, kEnough);
}

int Run(ProgramOptions options) {
    options.server.most_connections = MostConnections();
    kestrane::OutputLines output(STDOUT_FILENO);
    UnitRow units(
        options, [&output](const std::string& line) { output.Write(line); }, Complain);
    const UnitServer::Started started = units.Listen();
    if (started.result != UnitServer::Start::kReady) {
        Complain(started.error);
        return started.result == UnitServer::Start::kNoPort ? 1 : 2;
    }
    const kestrane::SignalWatch watch([](int) { QCoreApplication::quit(); });
    const kestrane::InputLines input(
        STDIN_FILENO,
        [&units](const kestrane::InputLine& line) {
            const std::string answer = units.Hand(line.text);
            if (!answer.empty()) std::fprintf(stderr, "%s\n", answer.c_str());
        },
        [] {});
    for (const std::string& line : units.ReadyLines()) output.Write(line);
    QCoreApplication::exec();
    units.Stop();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    kestrane::OpenStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN);
    ProgramOptions options = kestrane::unit::ParseProgramOptions(argc, argv);
    if (options.finished) {
        if (options.exit_status == 0) {
            std::fputs(options.text.c_str(), stdout);
        } else {
            Complain(options.text);
        }
        return options.exit_status;
    }
    QCoreApplication application(argc, argv);
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    return Run(std::move(options));
}
