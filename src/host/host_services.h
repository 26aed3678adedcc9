#pragma once

// The services that need no display, in one place. A program adds its boxes, its file dialogs and
// its sound, and has a whole Platform. A QCoreApplication must exist first.

#include "host/curl_http_reader.h"
#include "host/disk.h"
#include "host/qt_event_loop.h"
#include "host/qt_services.h"
#include "host/qt_tcp_client.h"
#include "host/qt_timer_service.h"
#include "platform/platform.h"

namespace kestrane {

struct HostServices {
    // Turns proxies off: a unit and its server are always reached directly.
    HostServices();
    HostServices(const HostServices&) = delete;
    HostServices& operator=(const HostServices&) = delete;

    Platform With(MessageBoxes& boxes, FileDialogs& files, Sound& sound) {
        return {loop, timers, tcpsend, http, boxes, files, clock, random, sound, disk};
    }

    QtEventLoop loop;
    QtTimerService timers;
    QtTcpClient tcpsend;
    CurlHttpReader http;
    QtClock clock;
    QtRandom random;
    Disk disk;
    TerminalSound terminal_sound;
};

}  // namespace kestrane
