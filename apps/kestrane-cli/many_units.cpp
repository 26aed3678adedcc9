#include "many_units.h"

#include <sys/resource.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFile>
#include <cstdio>
#include <cstdlib>

#include "cli/fleet_run.h"
#include "host/fiber_services.h"
#include "host/signal_watch.h"

namespace kestrane {
namespace {

// The report on the disk: each line is there before the next unit is begun.
class ReportFile {
  public:
    ReportFile(const std::string& name, bool adds) : file_(QString::fromStdString(name)) {
        const auto mode = QIODevice::ReadWrite | QIODevice::Unbuffered;
        good_ = file_.open(adds ? mode : mode | QIODevice::Truncate);
        if (good_ && adds) good_ = DropCutLine();
    }

    bool Write(const std::string& line) {
        const std::string whole = line + '\n';
        const auto size = static_cast<qint64>(whole.size());
        good_ = good_ && file_.write(whole.data(), size) == size;
        return good_;
    }
    bool good() const { return good_; }
    std::string Problem() const { return file_.errorString().toStdString(); }

  private:
    // What an earlier run left of its last line when it was ended.
    bool DropCutLine() {
        const QByteArray all = file_.readAll();
        const qint64 whole = all.lastIndexOf('\n') + 1;
        return file_.resize(whole) && file_.seek(whole);
    }

    QFile file_;
    bool good_ = false;
};

// A connection takes several handles; the usual limit of 1024 is too low for many units at a time.
void RaiseHandleLimit() {
    rlimit limit{};
    if (getrlimit(RLIMIT_NOFILE, &limit) != 0) return;
    limit.rlim_cur = limit.rlim_max;
    setrlimit(RLIMIT_NOFILE, &limit);
}

// One line at the bottom of a terminal that is written over.
class ProgressLine {
  public:
    explicit ProgressLine(bool shown) : shown_(shown) {}

    void Show(const std::string& text) {
        if (!shown_) return;
        text_ = text;
        std::fprintf(stderr, "\r\x1b[K%s", text_.c_str());
        std::fflush(stderr);
    }
    // What `print` writes, on whatever stream, stands above it.
    void Above(const std::function<void()>& print) {
        if (shown_) std::fputs("\r\x1b[K", stderr);
        print();
        if (shown_ && !text_.empty()) Show(text_);
    }
    void End() {
        if (shown_ && !text_.empty()) std::fputc('\n', stderr);
        shown_ = false;
    }

  private:
    bool shown_;
    std::string text_;
};

}  // namespace

int RunManyUnits(const Call& call, const CallOptions& options, const FleetOptions& fleet,
                 const Complaints& complain) {
    const std::string prefix = std::string(call.name()) + ": ";
    std::optional<ReportFile> report;
    if (!fleet.report_file().empty()) {
        report.emplace(fleet.report_file(), fleet.AddsToReport());
        if (!report->good()) {
            complain(prefix + "--report: " + fleet.report_file() +
                     " can't be written: " + report->Problem());
            return kExitUsage;
        }
    }
    RaiseHandleLimit();
    ProgressLine progress(isatty(STDERR_FILENO) != 0);
    StandardOutput output;
    FleetRun* running = nullptr;
    bool report_failed = false;
    int signal_status = 0;

    FleetJob job;
    job.units = fleet.units();
    job.plan = fleet.Plan(call);
    job.call = &call;
    job.options = options;
    job.new_lane = [] { return std::make_unique<FiberServices>(); };
    job.print = [&](const std::string& line) { progress.Above([&] { output.Print(line); }); };
    job.complain = [&](const std::string& line) {
        progress.Above([&] { complain(prefix + line); });
    };
    job.progress = [&](const std::string& text) { progress.Show(text); };
    if (report) {
        job.report = [&](const std::string& line) {
            if (report->Write(line) || std::exchange(report_failed, true)) return;
            complain(prefix + "--report: " + fleet.report_file() +
                     " can't be written: " + report->Problem() + "; no further unit is begun");
            running->Interrupt();
        };
    }
    FleetRun run(std::move(job));
    running = &run;
    QEventLoop loop;
    const SignalWatch watch([&](int number) {
        if (signal_status != 0) std::quick_exit(128 + number);
        signal_status = 128 + number;
        run.Interrupt();
    });
    run.Start(
        [&loop] { QMetaObject::invokeMethod(&loop, &QEventLoop::quit, Qt::QueuedConnection); });
    loop.exec();
    progress.End();
    if (signal_status != 0) return signal_status;
    return output.StatusAfter(report_failed ? int{kExitUnit} : run.ExitStatus(),
                              [&](const std::string& line) { complain(prefix + line); });
}

}  // namespace kestrane
