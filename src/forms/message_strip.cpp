#include "forms/message_strip.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QTime>

#include "forms/look/look.h"
#include "forms/look/spacing.h"

namespace kestrane {
namespace {

// A sign and a colour for each kind: neither alone.
struct KindLook {
    const char16_t* sign;
    QColor (*colour)(const QPalette&);
};

KindLook LookOf(MessageKind kind) {
    switch (kind) {
        case MessageKind::kWarning:
            return {u"\u25B2", WarningColour};
        case MessageKind::kFault:
            return {u"\u2716", FaultColour};
        default:
            return {u"\u2714", GoodColour};
    }
}

}  // namespace

QString TimeOfDay(const Tool& tool, std::uint32_t when) {
    const std::uint32_t age = tool.screen.platform().clock.TickCount() - when;
    return QTime::currentTime()
        .addMSecs(-static_cast<int>(age))
        .toString(QStringLiteral("HH:mm:ss"));
}

MessageStrip::MessageStrip(Workbench& bench)
    : bench_(bench), sign_(new QLabel), label_(new QLabel), changes_(new QToolButton) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kGap);
    sign_->setFixedWidth(fontMetrics().height());
    sign_->setAlignment(Qt::AlignCenter);
    label_->setTextFormat(Qt::PlainText);
    label_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    label_->setAccessibleName(QStringLiteral("Last message"));
    changes_->setToolTip(QStringLiteral("Review what differs from the unit (Ctrl+R)"));
    changes_->setFocusPolicy(Qt::NoFocus);
    QSizePolicy policy = changes_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    changes_->setSizePolicy(policy);
    row->addWidget(sign_);
    row->addWidget(label_, 1);
    row->addWidget(changes_);
    changes_->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("999 changes")) +
                              2 * kGap);
    bench.messages.OnAdded([this](const Message& message) { Take(message); });
    ShowCount();
}

void MessageStrip::Take(const Message& message) {
    kind_ = message.kind;
    text_ = TimeOfDay(bench_.tool, message.when) + QStringLiteral("  ") +
            QString::fromStdString(message.text);
    label_->setAccessibleName(QString::fromStdString(message.text));
    Elide();
    QAccessibleEvent event(label_, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

// The whole of it stands in the tip and in the log.
void MessageStrip::Elide() {
    if (text_.isEmpty()) return;
    const KindLook look = LookOf(kind_);
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, look.colour(palette()));
    sign_->setPalette(colours);
    sign_->setText(QString::fromUtf16(look.sign));
    label_->setText(label_->fontMetrics().elidedText(text_, Qt::ElideRight, label_->width()));
    label_->setToolTip(text_);
}

void MessageStrip::ShowCount() {
    const auto count = bench_.pending.Count();
    changes_->setVisible(count > 0);
    if (count == 0) return;
    changes_->setText(count == 1 ? QStringLiteral("1 change")
                                 : QStringLiteral("%1 changes").arg(count));
}

void MessageStrip::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    Elide();
}

void MessageStrip::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) Elide();
}

}  // namespace kestrane
