#include "forms/source_box.h"

#include <QKeyEvent>

#include "forms/mirror.h"

namespace kestrane {

SourceBox::SourceBox(std::function<void(const QString&)> enter) : enter_(std::move(enter)) {
    setPlaceholderText(QStringLiteral("or type a line of source, such as OFF 6 1"));
    setObjectName(QStringLiteral("sourceLine"));
    setProperty(kKeepsKeyboard, true);
    setAccessibleName(QStringLiteral("Line of source"));
    setToolTip(
        QStringLiteral("Enter puts the line at the cursor, which goes on to the next (Ctrl+L)"));
}

// Enter ends here: in the window it would click the listing.
void SourceBox::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter) {
        QLineEdit::keyPressEvent(event);
    } else if (!text().trimmed().isEmpty()) {
        enter_(text());
    }
}

}  // namespace kestrane
