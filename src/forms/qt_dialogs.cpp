#include "forms/qt_dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>

#include "forms/latin1.h"

namespace kestrane {
namespace {

QMessageBox::StandardButton ToStandard(BoxButton button) {
    switch (button) {
        case BoxButton::kOk:
            return QMessageBox::Ok;
        case BoxButton::kCancel:
            return QMessageBox::Cancel;
        case BoxButton::kYes:
            return QMessageBox::Yes;
        case BoxButton::kNo:
            return QMessageBox::No;
    }
    return QMessageBox::Ok;
}

QWidget* Owner() {
    QWidget* const modal = QApplication::activeModalWidget();
    return modal ? modal : QApplication::activeWindow();
}

// The boxes that say that something went well or remind of something; any other box with a single
// button says that something did not work.
constexpr const char* kInforming[] = {"Unit IP Address Changed", "Control Port Changed"};
// Those that say that the line or the unit failed.
constexpr const char* kFailing[] = {"Comms Clash1!", "Comms Clash2!", "Comms Error"};

QMessageBox::Icon IconOf(const std::string& title, const std::vector<BoxButton>& buttons) {
    const auto is = [&title](const char* other) { return title == other; };
    if (buttons.size() > 1) return QMessageBox::Question;
    if (std::any_of(std::begin(kInforming), std::end(kInforming), is)) {
        return QMessageBox::Information;
    }
    const bool failed = std::any_of(std::begin(kFailing), std::end(kFailing), is);
    return failed ? QMessageBox::Critical : QMessageBox::Warning;
}

// Until `dialog` is answered, without a loop of Qt's own.
void Run(QDialog& dialog, EventLoop& loop) {
    bool finished = false;
    QObject::connect(&dialog, &QDialog::finished, &dialog, [&finished] { finished = true; });
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.show();
    while (!finished) loop.Pump();
}

}  // namespace

BoxButton QtBoxes::Show(const std::string& title, const std::string& text,
                        const std::vector<BoxButton>& buttons) {
    QMessageBox box(Owner());
    box.setWindowTitle(ToQt(title));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQtLines(text));
    box.setIcon(IconOf(title, buttons));
    for (const BoxButton button : buttons) box.addButton(ToStandard(button));
    if (!buttons.empty()) box.setDefaultButton(ToStandard(buttons.front()));
    Run(box, loop_);
    const auto pressed = box.standardButton(box.clickedButton());
    for (const BoxButton button : buttons) {
        if (ToStandard(button) == pressed) return button;
    }
    return buttons.empty() ? BoxButton::kOk : buttons.back();
}

std::vector<std::string> QtFiles::NameFilters(const std::string& filter) {
    std::vector<std::string> parts{""};
    for (const char c : filter) {
        if (c == '|') {
            parts.emplace_back();
        } else {
            parts.back().push_back(c);
        }
    }
    std::vector<std::string> filters;
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        std::string name = parts[i].substr(0, parts[i].find('('));
        while (!name.empty() && name.back() == ' ') name.pop_back();
        std::string patterns = parts[i + 1];
        std::replace(patterns.begin(), patterns.end(), ';', ' ');
        filters.push_back(name + " (" + (patterns == "*.*" ? "*" : patterns) + ")");
    }
    return filters;
}

std::string QtFiles::Ask(const Request& request) {
    QFileDialog dialog(Owner(), ToQt(request.title));
    dialog.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    // A save replaces the file without a question.
    dialog.setOption(QFileDialog::DontConfirmOverwrite);
    dialog.setDefaultSuffix(ToQt(request.default_extension));
    QStringList filters;
    for (const std::string& filter : NameFilters(request.filter)) filters << ToQt(filter);
    dialog.setNameFilters(filters);
    Run(dialog, loop_);
    if (dialog.result() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return {};
    return QFile::encodeName(dialog.selectedFiles().constFirst()).toStdString();
}

bool AskToDiscard(QWidget* owner, EventLoop& loop, const QString& text) {
    QMessageBox box(owner);
    box.setWindowTitle(QStringLiteral("Changes are not written"));
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setIcon(QMessageBox::Warning);
    QAbstractButton* discard = box.addButton(QStringLiteral("Discard"), QMessageBox::AcceptRole);
    box.addButton(QMessageBox::Cancel);
    box.setDefaultButton(QMessageBox::Cancel);
    box.setEscapeButton(QMessageBox::Cancel);
    Run(box, loop);
    return box.clickedButton() == discard;
}

void WindowSound::Beep() { QApplication::beep(); }

}  // namespace kestrane
