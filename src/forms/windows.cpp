#include "forms/windows.h"

#include <QCoreApplication>
#include <QPixmap>

namespace kestrane {

Windows::Windows(Screen& screen, Hand& hand, const Forms& forms, WhyDisabledFunction why_disabled)
    : screen_(screen), hand_(hand), forms_(forms), why_disabled_(std::move(why_disabled)) {
    screen_.AddListener(*this);
}

Windows::~Windows() {
    screen_.RemoveListener(*this);
    dialogs_.clear();
}

FormWindow* Windows::Find(const Form& form) const {
    if (&form == &forms_.main) return main_.get();
    const auto found = dialogs_.find(&form);
    return found == dialogs_.end() ? nullptr : found->second.get();
}

FormWindow& Windows::WindowOf(Form& form) {
    if (FormWindow* window = Find(form)) return *window;
    if (&form == &forms_.main) {
        main_ = std::make_unique<MainWindow>(forms_.main, hand_, why_disabled_);
        return *main_;
    }
    return *(dialogs_[&form] = NewWindow(form));
}

std::unique_ptr<FormWindow> Windows::NewWindow(Form& form) {
    QWidget* const owner = &WindowOf(forms_.main);
    if (&form == &forms_.login) {
        return std::make_unique<LoginWindow>(forms_.login, hand_, why_disabled_, owner);
    }
    if (&form == &forms_.confirm) {
        return std::make_unique<ConfirmPasswordWindow>(forms_.confirm, hand_, why_disabled_, owner);
    }
    if (&form == &forms_.help) {
        return std::make_unique<HelpWindow>(forms_.help, hand_, why_disabled_, owner);
    }
    return std::make_unique<ScriptEditWindow>(forms_.script_edit, hand_, why_disabled_, owner);
}

bool Windows::Grab(const std::string& form, const std::string& path) {
    Form* const wanted = screen_.FindForm(form);
    if (!wanted) return false;
    FormWindow& window = WindowOf(*wanted);
    window.mirror().Refresh();
    window.ensurePolished();
    // All of it, also where the screen is too small.
    window.resize(window.WholeSize());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    return window.grab().save(QString::fromStdString(path), "PNG");
}

void Windows::ControlChanged(Control& control, Property) {
    if (FormWindow* window = Find(control.form())) window->mirror().Changed(control);
}

void Windows::FocusChanged(Form& form) {
    if (FormWindow* window = Find(form)) window->mirror().FocusChanged();
}

void Windows::FormShown(Form& form) { WindowOf(form).ShowCentred(); }

void Windows::FormHidden(Form& form) {
    if (FormWindow* window = Find(form)) window->hide();
}

}  // namespace kestrane
