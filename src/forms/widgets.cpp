#include "forms/widgets.h"

#include <QFontDatabase>
#include <QPainter>

#include "forms/latin1.h"
#include "forms/look.h"

namespace kestrane {
namespace {

constexpr int kButtonPadding = 20;
constexpr int kLines = 3;  // of a long text

}  // namespace

// FrameView

FrameView::FrameView() : title_(new QLabel(this)), body_(new QFrame(this)) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(3);
    layout->addWidget(title_);
    layout->addWidget(body_, 1);
    title_->setTextFormat(Qt::PlainText);
    title_->setWordWrap(false);
    QFont bold = font();
    bold.setBold(true);
    title_->setFont(bold);
    body_->setFrameShape(QFrame::StyledPanel);
}

void FrameView::SetTitle(const QString& title) {
    if (title_->text() == title) return;
    title_->setText(title);
    setAccessibleName(title);
}

void FrameView::SetTitleColours(const QPalette& palette) {
    if (title_->palette() != palette) title_->setPalette(palette);
}

// ButtonView

QSize ButtonView::sizeHint() const {
    QSize size = QPushButton::sizeHint();
    const QFontMetrics metrics = fontMetrics();
    int width = metrics.horizontalAdvance(text());
    for (const QString& caption : reserved_) {
        width = std::max(width, metrics.horizontalAdvance(caption));
    }
    size.setWidth(std::max(size.width(), width + kButtonPadding));
    return size;
}

void ButtonView::ReserveFor(std::vector<QString> captions) {
    reserved_ = std::move(captions);
    updateGeometry();
}

// LightView

LightView::LightView() { setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); }

void LightView::SetPicture(int picture) {
    if (picture_ == picture) return;
    picture_ = picture;
    update();
}

QSize LightView::sizeHint() const { return {20, 19}; }

void LightView::paintEvent(QPaintEvent*) {
    static const QColor kColours[] = {QColor(0x9A, 0x9F, 0xA6), QColor(0xE5, 0x33, 0x2A),
                                      QColor(0x2F, 0xBF, 0x4A), QColor(0xF5, 0x9A, 0x1C)};
    const QColor colour = kColours[picture_ >= 0 && picture_ < 4 ? picture_ : 0];
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF circle = QRectF(rect()).adjusted(2.5, 2, -2.5, -2);
    QRadialGradient glow(circle.center() - QPointF(2.5, 3), circle.width() * 0.75);
    glow.setColorAt(0, colour.lighter(165));
    glow.setColorAt(1, colour);
    painter.setBrush(glow);
    painter.setPen(QPen(colour.darker(165), 1));
    painter.drawEllipse(circle);
}

// FuseView

FuseView::FuseView() { setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); }

void FuseView::MakeBar() {
    bar_ = true;
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize FuseView::sizeHint() const { return bar_ ? QSize(40, 8) : QSize(14, 26); }

void FuseView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(0.55f);
    painter.setPen(QPen(line, 1.2));
    const QRectF area = QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5);
    if (bar_) {
        painter.drawPolyline(
            QPolygonF({area.topLeft(), area.bottomLeft(), area.bottomRight(), area.topRight()}));
        return;
    }
    const QRectF body = area.adjusted(1, 5, -1, -5);
    const qreal middle = area.center().x();
    painter.drawLine(QPointF(middle, area.top()), QPointF(middle, area.bottom()));
    painter.drawRect(body);
}

// RowView

void RowView::SetMarked(bool marked) {
    if (marked_ == marked) return;
    marked_ = marked;
    update();
}

// The mark is an outline on a faint ground, so that the texts keep their colours.
void RowView::paintEvent(QPaintEvent*) {
    if (!marked_) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor mark = palette().color(QPalette::Active, QPalette::Highlight);
    QColor ground = mark;
    ground.setAlphaF(0.22f);
    painter.setPen(QPen(mark, 1.6));
    painter.setBrush(ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
}

// ScrollingPage

ScrollingPage::ScrollingPage() {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
}

void ScrollingPage::Hold(QWidget* page) {
    setWidget(page);
    page->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    updateGeometry();
}

QSize ScrollingPage::sizeHint() const {
    if (!widget()) return QScrollArea::sizeHint();
    // The frame of a tab takes a little more than it tells.
    constexpr QSize kFrameOfTab(4, 4);
    return widget()->sizeHint() + kFrameOfTab;
}

// LongTextView

LongTextView::LongTextView() {
    setReadOnly(true);
    setTabChangesFocus(true);
    setFocusPolicy(Qt::ClickFocus);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setWordWrapMode(QTextOption::WrapAnywhere);
    setUndoRedoEnabled(false);
}

void LongTextView::Show(const std::string& text) {
    const std::string_view beginning(text.data(), std::min(text.size(), kShown));
    if (length_ == text.size() && beginning_ == beginning) return;
    beginning_ = beginning;
    length_ = text.size();
    QString shown = ToQt(beginning_);
    // What has no picture of its own would break the lines.
    for (QChar& character : shown) {
        if (character.unicode() < 0x20 ||
            (character.unicode() >= 0x7F && character.unicode() < 0xA0)) {
            character = QChar(0xB7);
        }
    }
    if (length_ > kShown) {
        shown += QStringLiteral(" … (%1 characters)").arg(static_cast<qulonglong>(length_));
    }
    setPlainText(shown);
}

QSize LongTextView::sizeHint() const {
    const int frame = 2 * (frameWidth() + static_cast<int>(document()->documentMargin()));
    return {fontMetrics().averageCharWidth() * 40, fontMetrics().lineSpacing() * kLines + frame};
}

QSize LongTextView::minimumSizeHint() const {
    return {fontMetrics().averageCharWidth() * 16, sizeHint().height()};
}

}  // namespace kestrane
