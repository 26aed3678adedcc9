// kestrane-config: the configuration tool with its windows.

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <QApplication>
#include <csignal>
#include <cstdlib>
#include <map>

#include "common/program.h"
#include "console/console.h"
#include "forms/look/look.h"
#include "forms/qt_dialogs.h"
#include "forms/windows.h"
#include "host/descriptors.h"
#include "host/host_services.h"
#include "host/signal_watch.h"

namespace {

using namespace kestrane;

const Complaints complain("kestrane-config");

constexpr char kNoDisplay[] =
    "there is no display; start it in a desktop session, or set DISPLAY, or use kestrane-cli";

// Qt ends the program without a word of help when it finds no display.
bool DisplayIsNamed() {
    for (const char* name : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY"}) {
        const char* value = std::getenv(name);
        if (value && *value) return true;
    }
    return false;
}

// Qt's way to say that the display which is named can't be opened.
void OnQtMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg) {
        complain(kNoDisplay);
        std::_Exit(kExitUnit);
    }
    // The toolkit's warnings are no news for the operator.
    if (type == QtCriticalMsg) complain(message.toStdString());
}

struct WindowOptions {
    bool console = false;
    Look look = Look::kSystem;
};

std::optional<int> Parse(int argc, char** argv, CallOptions& options, WindowOptions& windows) {
    CLI::App app("Configures a Kestrane MDU.", "kestrane-config");
    app.set_version_flag("--version", std::string("kestrane-config ") + KESTRANE_VERSION);
    options.AddTo(app);
    app.add_flag("--console", windows.console,
                 "Take commands from standard input, as kestrane-cli console does");
    const std::map<std::string, Look> looks = {
        {"system", Look::kSystem}, {"light", Look::kLight}, {"dark", Look::kDark}};
    app.add_option_function<std::string>(
           "--look", [&windows, looks](const std::string& word) { windows.look = looks.at(word); },
           "light, dark or system: as the desktop is (system)")
        ->check(CLI::IsMember({"light", "dark", "system"}));
    return ParseCommandLine(app, argc, argv, options, complain);
}

// Where the boxes, file dialogs and beeps of the tool go.
struct Faces {
    explicit Faces(EventLoop& loop) : boxes(loop), files(loop) {}

    Platform With(HostServices& host, bool scripts) {
        return scripts ? host.With(scripted, scripted, scripted) : host.With(boxes, files, sound);
    }

    QtBoxes boxes;
    QtFiles files;
    WindowSound sound;
    ScriptedOperator scripted;
};

int Run(CallOptions& options, bool with_console) {
    HostServices host;
    Faces faces(host.loop);
    std::unique_ptr<unit::UnitServer> demo;
    if (options.demo()) {
        demo = StartDemo(options, complain);
        if (!demo) return kExitUnit;
    }
    Tool tool(faces.With(host, with_console), options.tool_options());
    Workbench bench(tool);
    Windows windows(bench);
    const SignalWatch watch([&host](int number) {
        host.tcpsend.Close();
        host.loop.Exit(128 + number);
    });
    tool.Start();
    options.Apply(tool);
    std::unique_ptr<Console> console;
    std::unique_ptr<InputLines> input;
    if (with_console) {
        const auto grab = [&windows](Form& form, const std::string& path) -> Refusal {
            if (windows.Grab(form.name(), path)) return {};
            return "no picture of " + form.name() + " could be saved as " + path;
        };
        const auto where = [&windows](const Control& control) -> std::optional<std::array<int, 4>> {
            const QRect place = windows.Where(control);
            if (place.isEmpty()) return {};
            return std::array<int, 4>{place.x(), place.y(), place.width(), place.height()};
        };
        console = std::make_unique<Console>(
            tool, faces.scripted,
            ConsoleOptions{[](const std::string& text) { WriteLine(stdout, text); }, grab, where,
                           &bench});
        input = std::make_unique<InputLines>(
            STDIN_FILENO, [&console](const InputLine& line) { console->FeedLine(line.text); },
            [&console] { console->EndOfInput(); });
    }
    while (true) host.loop.Pump();
}

}  // namespace

int main(int argc, char** argv) {
    OpenStandardDescriptors();
    std::signal(SIGPIPE, SIG_IGN);
    CallOptions options;
    WindowOptions windows;
    if (const auto status = Parse(argc, argv, options, windows)) return *status;
    if (!DisplayIsNamed()) {
        complain(kNoDisplay);
        return kExitUnit;
    }
    qInstallMessageHandler(OnQtMessage);
    QApplication application(argc, argv);
    ApplyLook(windows.look);
    return Run(options, windows.console);
}
