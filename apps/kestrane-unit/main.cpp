// kestrane-unit: a demo unit on its own.

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QNetworkProxy>
#include <QSocketNotifier>
#include <array>
#include <cstdio>
#include <string>

#include "program_options.h"
#include "standard_input.h"
#include "unit/unit_server.h"

namespace {

using kestrane::unit::ProgramOptions;
using kestrane::unit::UnitServer;

// Written by the signal handler, read by the event loop: the one way to get from there to here.
std::array<int, 2> signal_pipe{-1, -1};

void OnSignal(int) {
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = write(signal_pipe[1], &byte, 1);
}

// A closed standard descriptor would be given to the first socket, which would then get our
// printing.
void OpenStandardDescriptors() {
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        if (fcntl(descriptor, F_GETFD) == -1) {
            [[maybe_unused]] const int opened = open("/dev/null", O_RDWR);
        }
    }
}

void CatchSignals() {
    if (pipe2(signal_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
    struct sigaction action {};
    action.sa_handler = OnSignal;
    action.sa_flags = SA_RESTART;
    sigaction(SIGINT, &action, nullptr);
    sigaction(SIGTERM, &action, nullptr);
    signal(SIGPIPE, SIG_IGN);
}

void Print(const std::string& line) {
    std::fwrite(line.data(), 1, line.size(), stdout);
    std::fputc('\n', stdout);
    std::fflush(stdout);
}

void Complain(const std::string& line) {
    std::fprintf(stderr, "kestrane-unit: %s\n", line.c_str());
}

std::string ReadyLine(const UnitServer& server) {
    const auto& ports = server.Ports();
    return "{\"ports\":[" + std::to_string(ports[0]) + "," + std::to_string(ports[1]) + "," +
           std::to_string(ports[2]) + "],\"versions\":" + std::to_string(server.VersionsPort()) +
           "}";
}

int Run(ProgramOptions options) {
    if (options.log) options.server.log = Print;
    options.server.warn = Complain;
    UnitServer server(std::move(options.server));
    const UnitServer::Started started = server.Listen();
    if (started.result != UnitServer::Start::kReady) {
        Complain(started.error);
        return started.result == UnitServer::Start::kNoPort ? 1 : 2;
    }
    QSocketNotifier signalled(signal_pipe[0], QSocketNotifier::Read);
    QObject::connect(&signalled, &QSocketNotifier::activated, [] { QCoreApplication::quit(); });
    const kestrane::unit::StandardInput input([&server](const std::string& line) {
        const std::string answer = server.Hand(line);
        if (!answer.empty()) std::fprintf(stderr, "%s\n", answer.c_str());
    });
    Print(ReadyLine(server));
    QCoreApplication::exec();
    server.Stop();
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    OpenStandardDescriptors();
    ProgramOptions options = kestrane::unit::ParseProgramOptions(argc, argv);
    if (options.finished) {
        if (options.exit_status == 0) {
            std::fputs(options.text.c_str(), stdout);
        } else {
            Complain(options.text);
        }
        return options.exit_status;
    }
    CatchSignals();
    QCoreApplication application(argc, argv);
    QNetworkProxy::setApplicationProxy(QNetworkProxy::NoProxy);
    return Run(std::move(options));
}
