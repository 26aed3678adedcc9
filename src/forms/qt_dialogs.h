#pragma once

// Message boxes, file dialogs and the beep on Qt. A box pumps the program's own event loop until
// it is answered, so that ticks, waits and the end of the program go on as ever.

#include <QString>

#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/services.h"

class QWidget;

namespace kestrane {

class QtBoxes : public MessageBoxes {
  public:
    explicit QtBoxes(EventLoop& loop) : loop_(loop) {}

    BoxButton Show(const std::string& title, const std::string& text,
                   const std::vector<BoxButton>& buttons) override;

  private:
    EventLoop& loop_;
};

class QtFiles : public FileDialogs {
  public:
    explicit QtFiles(EventLoop& loop) : loop_(loop) {}

    std::string Ask(const Request& request) override;

    // "Macro Files (*.sms)|*.sms|All|*.*" as Qt writes filters.
    static std::vector<std::string> NameFilters(const std::string& filter);

  private:
    EventLoop& loop_;
};

// Asks whether pending changes may be dropped; Cancel is the default.
bool AskToDiscard(QWidget* owner, EventLoop& loop, const QString& text);

class WindowSound : public Sound {
  public:
    void Beep() override;
};

}  // namespace kestrane
