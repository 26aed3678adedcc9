#pragma once

// The pending changes as a list: key, what the unit holds, what stands on the screen. One leads to
// its control, and goes back alone or with all others.

#include <QDialog>
#include <QTreeWidget>

#include "editing/workbench.h"

namespace kestrane {

class ReviewWindow : public QDialog {
  public:
    // `go_to` selects the tab of a control and moves the focus there.
    ReviewWindow(Workbench& bench, std::function<void(Control&)> go_to, QWidget* owner);

    // Lists what is pending now.
    void Fill();

  private:
    const Setting* Selected() const;
    void GoTo();

    Workbench& bench_;
    std::function<void(Control&)> go_to_;
    QTreeWidget* list_;
};

}  // namespace kestrane
