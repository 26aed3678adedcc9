#include "forms/unit_header.h"

#include <QHBoxLayout>
#include <QPainter>

#include "forms/latin1.h"
#include "forms/look/look.h"
#include "forms/look/spacing.h"

namespace kestrane {
namespace {

struct StateLook {
    const char* word;
    QColor (*colour)(const QPalette&);
};

QColor Faint(const QPalette& palette) {
    return palette.color(QPalette::Disabled, QPalette::WindowText);
}

StateLook LookOf(SocketState state) {
    switch (state) {
        case SocketState::kConnected:
            return {"Connected", GoodColour};
        case SocketState::kError:
        case SocketState::kPeerClosing:
            return {"Line lost", FaultColour};
        case SocketState::kClosed:
            return {"Not connected", Faint};
        default:
            return {"Connecting...", WarningColour};
    }
}

void SetText(QLabel* label, const QString& text) {
    if (label->text() != text) label->setText(text);
}

QString Known(Workbench& bench, const char* key) {
    return ToQt(bench.pending.UnitValue(*FindSetting(key)).value_or("")).trimmed();
}

void AddKnown(QStringList& parts, const QString& text, const char* head = "") {
    if (!text.isEmpty() && text != QLatin1String("-")) parts << QLatin1String(head) + text;
}

QString Address(const MainForm& form) {
    return ToQt(form.txtCurrentIPAddress.Text() + ":" + form.txtCurrentPort.Text());
}

QStringList Details(Workbench& bench) {
    const Tool& tool = bench.tool;
    QStringList parts;
    AddKnown(parts, Known(bench, "network.unit_location"));
    AddKnown(parts, ToQt(tool.main_form.firmware.lblType.Caption()));
    AddKnown(parts, Known(bench, "unit.id"), "ID ");
    AddKnown(parts, ToQt(tool.main_form.firmware.lblSerialNo.Caption()), "serial ");
    parts << Address(tool.main_form);
    const int port = tool.session.ConnectedPortIndex;
    if (tool.session.AdminLoggedIn && port >= 1 && port <= 3) {
        parts << QStringLiteral("port ") + QChar(static_cast<char16_t>(u'A' + port - 1));
    }
    return parts;
}

}  // namespace

StateDot::StateDot() { setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); }

void StateDot::SetColour(const QColor& colour) {
    if (colour_ == colour) return;
    colour_ = colour;
    update();
}

void StateDot::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour_.darker(130), 1));
    painter.setBrush(colour_);
    painter.drawEllipse(QRectF(rect()).adjusted(2, 2, -2, -2));
}

UnitHeader::UnitHeader(Workbench& bench, std::function<void()> cancel)
    : bench_(bench),
      dot_(new StateDot),
      state_(new QLabel),
      name_(new QLabel),
      details_(new QLabel),
      cancel_(new QPushButton(QStringLiteral("Cancel"))) {
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kGap);
    for (QLabel* label : {state_, name_, details_}) label->setTextFormat(Qt::PlainText);
    name_->setFont(TitleFont(font()));
    details_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    details_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    details_->setFocusPolicy(Qt::NoFocus);
    state_->setAccessibleName(QStringLiteral("State of the connection"));
    name_->setAccessibleName(QStringLiteral("Unit"));
    cancel_->setAccessibleName(QStringLiteral("Cancel connecting"));
    cancel_->setFocusPolicy(Qt::NoFocus);
    cancel_->setMaximumHeight(fontMetrics().height() + 6);
    row->addWidget(dot_);
    row->addWidget(state_);
    row->addWidget(cancel_);
    row->addWidget(name_);
    row->addWidget(details_, 1);
    setFixedHeight(fontMetrics().height() + kGap);
    QObject::connect(cancel_, &QPushButton::clicked, this, [cancel] { cancel(); });
    Show();
}

void UnitHeader::Show() {
    const SocketState state = bench_.tool.link.platform().tcpsend.State();
    const StateLook look = LookOf(state);
    dot_->SetColour(look.colour(palette()));
    SetText(state_, QLatin1String(look.word));
    const bool connecting = state != SocketState::kClosed && state != SocketState::kConnected &&
                            state != SocketState::kError && state != SocketState::kPeerClosing;
    cancel_->setVisible(connecting);
    if (state != SocketState::kConnected) {
        SetText(name_, {});
        SetText(details_, connecting ? Address(bench_.tool.main_form) : QString());
        return;
    }
    const QString unit = Known(bench_, "network.unit_name");
    QStringList details = Details(bench_);
    SetText(name_, unit.isEmpty() ? Address(bench_.tool.main_form) : unit);
    if (unit.isEmpty()) details.removeAll(Address(bench_.tool.main_form));
    SetText(details_, details.join(QStringLiteral("  ·  ")));
}

}  // namespace kestrane
