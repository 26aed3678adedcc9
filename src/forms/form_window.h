#pragma once

// The window of one form: it is shown and hidden as the screen says, and passes its title bar's
// close, the Ctrl and Shift keys, Enter and Escape to the hand. Ctrl counts when it is pressed and
// released alone, so that Ctrl with another key means that key's own thing and nothing else.

#include <QWidget>

#include "forms/mirror.h"

namespace kestrane {

class FormWindow : public QWidget {
  public:
    FormWindow(Form& form, Hand& hand, WhyDisabledFunction why_disabled, QWidget* owner);

    Mirror& mirror() { return mirror_; }
    Form& form() const { return mirror_.form(); }

    // In the middle of its owner, or of the screen if it has none.
    void ShowCentred();

    // Makes what is to be seen and was put off so that the window comes up sooner.
    virtual void MakeWhole() {}

    // The size in which all of it can be seen, not below the present one.
    QSize WholeSize() const;

  protected:
    // Enter clicks this button, Escape that one; either may be null.
    void SetKeys(Button* on_enter, Button* on_escape);
    // Title, pointer; the form's other properties are for the derived window.
    virtual void FormChanged();

    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

    Mirror mirror_;

  private:
    void PressEnter();
    void WatchCtrl(const QEvent& event);

    Button* on_enter_ = nullptr;
    Button* on_escape_ = nullptr;
    bool ctrl_alone_ = false;
};

}  // namespace kestrane
