#pragma once

// All that the logic asks of the world, in one struct that is handed to every topic.

#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/file_store.h"
#include "platform/http_reader.h"
#include "platform/services.h"
#include "platform/tcp_client.h"
#include "platform/timer_service.h"

namespace kestrane {

struct Platform {
    EventLoop& loop;
    TimerService& timers;
    TcpClient& tcpsend;
    HttpReader& http;
    MessageBoxes& boxes;
    FileDialogs& files;
    Clock& clock;
    Random& random;
    Sound& sound;
    FileStore& disk;
};

}  // namespace kestrane
