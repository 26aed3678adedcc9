#include "unit/unit_server.h"

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QHostAddress>
#include <QPointer>
#include <QSaveFile>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <optional>
#include <utility>

#include "text/text.h"
#include "unit/accept_again.h"
#include "unit/defaults.h"
#include "unit/hand_commands.h"
#include "unit/state.h"
#include "unit/unit_connection.h"
#include "unit/versions_server.h"

namespace kestrane::unit {
namespace {

constexpr Milliseconds kTick{100};
// From the command to the moment when the interface goes down.
constexpr Milliseconds kEthernetResetAfter{250};
constexpr qint64 kMostStateBytes = 1 << 20;

QHostAddress AddressOf(const std::string& host) {
    if (host == "localhost") return QHostAddress(QHostAddress::LocalHost);
    return QHostAddress(QString::fromStdString(host));
}

// The frame in hexadecimal, bytes apart by blanks.
std::string Spaced(std::string_view frame) {
    std::string text;
    for (char c : frame) {
        text += ' ';
        text += HexByte(static_cast<std::uint8_t>(c));
    }
    return text;
}

// What a unit says to a command for which the port lacks the right.
std::optional<std::string> Refusal(const std::string& command) {
    return command.substr(0, 2) + '\x16';
}

std::string FileProblem(const std::string& file, const std::string& problem) {
    return "the state file " + file + " " + problem;
}

}  // namespace

class UnitServer::Impl : public QObject {
  public:
    explicit Impl(ServerOptions options)
        : options_(std::move(options)), dice_(options_.faults, options_.seed) {
        clock_.start();
    }

    Started Listen();
    bool SaveState();
    void Stop();

    Milliseconds Now() const { return Milliseconds{clock_.elapsed()}; }

    ServerOptions options_;
    std::optional<Unit> unit_;
    std::array<std::uint16_t, kControlPorts> ports_{};
    VersionsServer versions_;

  private:
    std::string LoadState();
    std::string WriteState();
    std::string ListenOn(int port);
    std::string ListenForVersions();
    void Accept(int port);
    std::vector<WireStep> Handle(int port, const std::string& command);
    void CloseConnections();
    void Log(const char* direction, int port, std::string_view frame) const;

    QElapsedTimer clock_;
    FaultDice dice_;
    std::array<QTcpServer, kControlPorts> servers_;
    std::vector<QPointer<UnitConnection>> connections_;
    QTimer tick_;
    bool started_ = false;
    std::uint64_t saved_changes_ = 0;
    std::uint64_t tried_changes_ = 0;
};

UnitServer::Started UnitServer::Impl::Listen() {
    if (AddressOf(options_.host).isNull()) {
        return {Start::kBadOptions, "\"" + options_.host + "\" is no address to listen on"};
    }
    if (const std::string error = LoadState(); !error.empty()) return {Start::kBadOptions, error};
    for (int port = 1; port <= kControlPorts; ++port) {
        const std::string error = ListenOn(port);
        if (!error.empty()) return {Start::kNoPort, error};
    }
    const std::string error = ListenForVersions();
    if (!error.empty()) return {Start::kNoPort, error};
    StoreControlPorts(unit_->Display(), ports_);
    // Tries the file now, before work is lost.
    const std::string save_error = WriteState();
    if (!save_error.empty()) return {Start::kBadOptions, save_error};
    started_ = true;
    connect(&tick_, &QTimer::timeout, this, [this] {
        unit_->Advance(Now());
        // A failure is told once and tried again at the next change and at the end.
        if (tried_changes_ != unit_->SettingsChanges()) SaveState();
    });
    tick_.start(kTick);
    return {Start::kReady, {}};
}

std::string UnitServer::Impl::LoadState() {
    const QString name = QString::fromStdString(options_.state_file);
    if (name.isEmpty() || !QFileInfo::exists(name)) {
        unit_.emplace(options_.unit);
        return {};
    }
    QFile file(name);
    if (!QFileInfo(name).isFile()) return FileProblem(options_.state_file, "is no file");
    if (!file.open(QIODevice::ReadOnly)) {
        return FileProblem(options_.state_file,
                           "can't be read: " + file.errorString().toStdString());
    }
    const DecodedState state = DecodeState(file.read(kMostStateBytes).toStdString());
    if (!state.boards) {
        return FileProblem(options_.state_file, state.error + "; remove it to start afresh");
    }
    unit_.emplace(options_.unit, *state.boards);
    return {};
}

std::string UnitServer::Impl::ListenOn(int port) {
    const auto index = static_cast<std::size_t>(port - 1);
    QTcpServer& server = servers_[index];
    const QHostAddress host = AddressOf(options_.host);
    if (!server.listen(host, options_.ports[index])) {
        return "can't listen on " + options_.host + " port " +
               std::to_string(options_.ports[index]) + ": " + server.errorString().toStdString();
    }
    ports_[index] = server.serverPort();
    connect(&server, &QTcpServer::newConnection, this, [this, port] { Accept(port); });
    AcceptAgain(server);
    return {};
}

std::string UnitServer::Impl::ListenForVersions() {
    if (!options_.serves_versions) return {};
    const std::string error =
        versions_.Listen(AddressOf(options_.host), options_.versions_port);
    if (error.empty()) return {};
    return "can't listen on " + options_.host + " port " + std::to_string(options_.versions_port) +
           " for the versions page: " + error;
}

void UnitServer::Impl::Accept(int port) {
    QTcpServer& server = servers_[static_cast<std::size_t>(port - 1)];
    while (QTcpSocket* socket = server.nextPendingConnection()) {
        std::erase_if(connections_, [](const auto& connection) { return connection.isNull(); });
        if (dice_.RefusesConnection() || connections_.size() >= options_.most_connections) {
            socket->abort();
            socket->deleteLater();
            continue;
        }
        const auto handle = [this, port](const std::string& text) { return Handle(port, text); };
        connections_.emplace_back(new UnitConnection(socket, handle, this));
    }
}

std::vector<WireStep> UnitServer::Impl::Handle(int port, const std::string& command) {
    Log("received", port, EncodeFrame(command));
    if (dice_.SwallowsFrame()) return {};
    const auto reply = dice_.Denies() ? Refusal(command) : unit_->Execute(port, command, Now());
    if (unit_->TakeEthernetReset()) {
        QTimer::singleShot(kEthernetResetAfter, this, [this] { CloseConnections(); });
    }
    if (!reply) return {};
    std::vector<WireStep> steps = dice_.Plan(EncodeFrame(dice_.Spoil(*reply, command.size())));
    steps.front().wait += options_.latency;
    for (const WireStep& step : steps) {
        if (!step.bytes.empty()) Log("sent", port, step.bytes);
    }
    return steps;
}

void UnitServer::Impl::CloseConnections() {
    for (const auto& connection : connections_) {
        if (connection) connection->Close();
    }
}

void UnitServer::Impl::Log(const char* direction, int port, std::string_view frame) const {
    if (!options_.log) return;
    options_.log(std::string(direction) + ' ' + static_cast<char>('A' + port - 1) + Spaced(frame));
}

std::string UnitServer::Impl::WriteState() {
    if (options_.state_file.empty()) return {};
    tried_changes_ = unit_->SettingsChanges();
    const std::string state = EncodeState(unit_->Memory());
    QSaveFile file(QString::fromStdString(options_.state_file));
    const auto size = static_cast<qint64>(state.size());
    if (!file.open(QIODevice::WriteOnly) || file.write(state.data(), size) != size ||
        !file.commit()) {
        return FileProblem(options_.state_file,
                           "can't be written: " + file.errorString().toStdString());
    }
    saved_changes_ = tried_changes_;
    return {};
}

bool UnitServer::Impl::SaveState() {
    if (saved_changes_ == unit_->SettingsChanges()) return true;
    const std::string error = WriteState();
    if (!error.empty() && options_.warn) options_.warn(error);
    return error.empty();
}

void UnitServer::Impl::Stop() {
    if (!started_) return;
    started_ = false;
    tick_.stop();
    for (QTcpServer& server : servers_) server.close();
    CloseConnections();
    versions_.Close();
    SaveState();
}

UnitServer::UnitServer(ServerOptions options) : impl_(std::make_unique<Impl>(std::move(options))) {}

UnitServer::~UnitServer() { Stop(); }

UnitServer::Started UnitServer::Listen() { return impl_->Listen(); }

const std::array<std::uint16_t, kControlPorts>& UnitServer::Ports() const { return impl_->ports_; }

std::uint16_t UnitServer::VersionsPort() const { return impl_->versions_.Port(); }

std::string UnitServer::Hand(std::string_view line) {
    return ApplyHandCommand(*impl_->unit_, line, impl_->Now());
}

bool UnitServer::SaveState() { return impl_->SaveState(); }

void UnitServer::Stop() { impl_->Stop(); }

Unit& UnitServer::TheUnit() { return *impl_->unit_; }

}  // namespace kestrane::unit
