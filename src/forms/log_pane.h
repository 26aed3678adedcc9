#pragma once

// Messages and frames as lines of text, with a filter, to be copied and saved. It holds what the
// workbench's log holds, which is bounded, and reads it only while it is shown.

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "editing/workbench.h"

namespace kestrane {

class LogPane : public QWidget {
  public:
    explicit LogPane(Workbench& bench);

    // All lines that pass the filter, with or without what is secret.
    QString Text() const;

  protected:
    void showEvent(QShowEvent* event) override;

  private:
    QString LineOf(const LogLine& line) const;
    QString LineOf(const Message& message) const;
    bool Passes(const QString& line) const;
    void Rebuild();
    void Append(const QString& line);
    void Repeat();
    void Save();

    Workbench& bench_;
    QLineEdit* filter_;
    QCheckBox* secrets_;
    QPlainTextEdit* text_;
};

}  // namespace kestrane
