#pragma once

// Marks at boxes and tabs: what differs from the unit, and what the unit has not kept of a write.

#include <QTabWidget>
#include <set>

#include "editing/workbench.h"
#include "forms/mirror.h"

namespace kestrane {

class Marks {
  public:
    // `pages`: of the tabs that bear a dot, from the first.
    Marks(Workbench& bench, Mirror& mirror, QTabWidget& tabs, int pages);

    void Show();

  private:
    void MarkTab(int page, bool marked);

    Workbench& bench_;
    Mirror& mirror_;
    QTabWidget& tabs_;
    int pages_;
    std::set<QWidget*> changed_;
    std::set<QWidget*> not_taken_;
};

}  // namespace kestrane
