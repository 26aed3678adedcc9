#pragma once

// All windows of the tool: one for each form, made when it is first shown, and kept in step with
// the screen from then on.

#include <map>
#include <memory>

#include "forms/main_window.h"
#include "forms/script_edit_window.h"
#include "forms/small_windows.h"

namespace kestrane {

class Windows : public ScreenListener {
  public:
    // Listens to the screen from now on; the main form must not be up yet. Without a function the
    // reasons are those of the workbench.
    explicit Windows(Workbench& bench, WhyDisabledFunction why_disabled = {});
    ~Windows() override;
    Windows(const Windows&) = delete;
    Windows& operator=(const Windows&) = delete;

    // The window of a form, made now if it is not there yet.
    FormWindow& WindowOf(Form& form);

    // Saves a picture of the form's window as it stands, shown or not, as a PNG file. False for
    // an unknown form or a file that can't be written. A window that is not shown, or asked for
    // in no size, is as large as all of it needs.
    bool Grab(const std::string& form, const std::string& path, QSize size = {});

    // On the screen of the display; empty for a control that can't be seen now.
    QRect Where(const Control& control) const;

    void ControlChanged(Control& control, Property property) override;
    void FocusChanged(Form& form) override;
    void FormShown(Form& form) override;
    void FormHidden(Form& form) override;

  private:
    std::unique_ptr<FormWindow> NewWindow(Form& form);
    FormWindow* Find(const Form& form) const;

    Workbench& bench_;
    Tool& tool_;
    WhyDisabledFunction why_disabled_;
    // Owners before what they own: the main window goes last.
    std::unique_ptr<MainWindow> main_;
    std::map<const Form*, std::unique_ptr<FormWindow>> dialogs_;
};

}  // namespace kestrane
