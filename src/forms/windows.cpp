#include "forms/windows.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QPixmap>

namespace kestrane {

Windows::Windows(Workbench& bench, WhyDisabledFunction why_disabled)
    : bench_(bench), tool_(bench.tool), why_disabled_(std::move(why_disabled)) {
    if (!why_disabled_) {
        why_disabled_ = [&bench](const Control& control) {
            return WhyDisabled(bench.tool, control);
        };
    }
    tool_.screen.AddListener(*this);
}

Windows::~Windows() {
    tool_.screen.RemoveListener(*this);
    dialogs_.clear();
}

FormWindow* Windows::Find(const Form& form) const {
    if (&form == &tool_.main_form) return main_.get();
    const auto found = dialogs_.find(&form);
    return found == dialogs_.end() ? nullptr : found->second.get();
}

FormWindow& Windows::WindowOf(Form& form) {
    if (FormWindow* window = Find(form)) return *window;
    if (&form == &tool_.main_form) {
        main_ = std::make_unique<MainWindow>(bench_, why_disabled_);
        return *main_;
    }
    return *(dialogs_[&form] = NewWindow(form));
}

std::unique_ptr<FormWindow> Windows::NewWindow(Form& form) {
    QWidget* const owner = &WindowOf(tool_.main_form);
    if (&form == &tool_.login_form) {
        return std::make_unique<LoginWindow>(tool_.login_form, tool_.hand, why_disabled_, owner);
    }
    if (&form == &tool_.confirm_form) {
        return std::make_unique<ConfirmPasswordWindow>(tool_.confirm_form, tool_.hand,
                                                       why_disabled_, owner);
    }
    if (&form == &tool_.help_form) {
        return std::make_unique<HelpWindow>(tool_.help_form, tool_.hand, why_disabled_, owner);
    }
    return std::make_unique<ScriptEditWindow>(tool_.script_edit_form, tool_.macro_editor,
                                              tool_.hand, bench_.live, why_disabled_, owner);
}

bool Windows::Grab(const std::string& form, const std::string& path, QSize size) {
    Form* const wanted = tool_.screen.FindForm(form);
    if (!wanted) return false;
    FormWindow& window = WindowOf(*wanted);
    window.MakeWhole();
    window.mirror().Refresh();
    window.ensurePolished();
    // All of it, also where the screen is too small.
    window.resize(size.isValid() ? size : window.WholeSize());
    // A page that now fits takes its scroll bar away, later and by an event of its own.
    for (int pass = 0; pass < 2; ++pass) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
        for (QAbstractScrollArea* area : window.findChildren<QAbstractScrollArea*>()) {
            QCoreApplication::sendPostedEvents(area, QEvent::MetaCall);
        }
    }
    return window.grab().save(QString::fromStdString(path), "PNG");
}

QRect Windows::Where(const Control& control) const {
    FormWindow* const window = Find(control.form());
    const QWidget* const view = window ? window->mirror().WidgetOf(control) : nullptr;
    if (!view || view->visibleRegion().isEmpty()) return {};
    const QRect seen = view->visibleRegion().boundingRect();
    return {view->mapToGlobal(seen.topLeft()), seen.size()};
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
