#pragma once

// The line that says which unit this is: a dot and a word for the state of the connection, the
// unit's name, and what tells it from others.

#include <QLabel>
#include <QPushButton>

#include "editing/workbench.h"

namespace kestrane {

class StateDot : public QWidget {
  public:
    StateDot();

    void SetColour(const QColor& colour);
    QSize sizeHint() const override { return {14, 14}; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor colour_;
};

class UnitHeader : public QWidget {
  public:
    UnitHeader(Workbench& bench, std::function<void()> cancel);

    // Brings it up to date; cheap where nothing has changed.
    void Show();
    // The unit's name while it is known, else its address; empty without a connection.
    QString Name() const { return name_->text(); }

  private:
    Workbench& bench_;
    StateDot* dot_;
    QLabel* state_;
    QLabel* name_;
    QLabel* details_;
    QPushButton* cancel_;
};

}  // namespace kestrane
