#pragma once

// The menu bar: everything that the main window can do, with its key. Actions go through the same
// doors as the buttons; an entry whose control can't be used now is disabled.

#include <QMenuBar>
#include <functional>

#include "editing/workbench.h"
#include "forms/mirror.h"

namespace kestrane {

// What the window does itself.
struct WindowActions {
    std::function<void()> review;
    std::function<void()> show_log;
    std::function<void()> quit;
    // Whether what is pending may be dropped: asks once, with Cancel as the default.
    std::function<bool(const QString& because)> may_discard;
};

// Adds the actions to `window` as well, so that their keys work there.
void FillMenuBar(QMenuBar& bar, Workbench& bench, Mirror& mirror, WindowActions actions);

// The buttons that read and write what stands on a page; null for none.
Button* ReadButtonOf(MainForm& form, int page);
Button* WriteButtonOf(MainForm& form, int page);

}  // namespace kestrane
