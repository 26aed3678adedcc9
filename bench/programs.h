#pragma once

// The programs of this build folder as processes of their own, for benchmarks of the real pair.

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace kestrane {

inline QString ProgramPath(const QString& name) {
    return QCoreApplication::applicationDirPath() + "/" + name;
}

// A demo unit on free loopback ports; it ends with this object.
class UnitProcess {
  public:
    UnitProcess() {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(ProgramPath("kestrane-unit"), {"--port", "0"});
        while (!process_.canReadLine() && process_.waitForReadyRead(10000)) {
        }
        const QJsonObject ready = QJsonDocument::fromJson(process_.readLine()).object();
        port_ = ready["ports"].toArray().at(0).toInt();
        versions_port_ = ready["versions"].toInt();
    }
    ~UnitProcess() {
        process_.terminate();
        process_.waitForFinished();
    }

    // 0 if it has not started.
    int port() const { return port_; }
    QString address() const { return "127.0.0.1:" + QString::number(port_); }
    QString versions_url() const { return "http://127.0.0.1:" + QString::number(versions_port_); }

  private:
    QProcess process_;
    int port_ = 0;
    int versions_port_ = 0;
};

}  // namespace kestrane
