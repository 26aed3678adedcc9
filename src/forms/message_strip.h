#pragma once

// The last outcome, with its time and a sign of its kind, and the number of pending changes. New
// messages are announced to screen readers.

#include <QLabel>
#include <QToolButton>

#include "editing/workbench.h"

namespace kestrane {

// The time of day at a moment of the platform's clock.
QString TimeOfDay(const Tool& tool, std::uint32_t when);

class MessageStrip : public QWidget {
  public:
    explicit MessageStrip(Workbench& bench);

    void ShowCount();
    // The button that counts the pending changes.
    QToolButton* changes() const { return changes_; }
    const QString& text() const { return text_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void Take(const Message& message);
    void Elide();

    Workbench& bench_;
    QLabel* sign_;
    QLabel* label_;
    QToolButton* changes_;
    QString text_;
    MessageKind kind_ = MessageKind::kGood;
};

}  // namespace kestrane
