#include "forms/widgets.h"

#include <QFontDatabase>
#include <QPainter>
#include <QScrollBar>

#include "forms/latin1.h"
#include "forms/look/look.h"
#include "forms/look/spacing.h"
#include "forms/look/style.h"

namespace kestrane {
namespace {

constexpr int kUsualPadding = 20;
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

PrimaryButton::PrimaryButton() { setProperty(kPrimary, true); }

QSize ButtonView::sizeHint() const {
    QSize size = QPushButton::sizeHint();
    const QFontMetrics metrics = fontMetrics();
    int width = metrics.horizontalAdvance(text());
    for (const QString& caption : reserved_) {
        width = std::max(width, metrics.horizontalAdvance(caption));
    }
    // Narrow ones may go below the style's own width.
    const int least = padding_ < kUsualPadding ? 0 : size.width();
    size.setWidth(std::max(least, width + padding_));
    return size;
}

void ButtonView::ReserveFor(std::vector<QString> captions) {
    reserved_ = std::move(captions);
    updateGeometry();
}

void ButtonView::SetPadding(int padding) {
    padding_ = padding;
    updateGeometry();
}

// LightView

LightView::LightView() { setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed); }

void LightView::SetPicture(int picture) {
    if (picture_ == picture) return;
    picture_ = picture;
    update();
}

void LightView::SetFaded(bool faded) {
    if (faded_ == faded) return;
    faded_ = faded;
    update();
}

QSize LightView::sizeHint() const { return {20, 19}; }

void LightView::paintEvent(QPaintEvent*) {
    static const QColor kColours[] = {QColor(0x9A, 0x9F, 0xA6), QColor(0xE5, 0x33, 0x2A),
                                      QColor(0x2F, 0xBF, 0x4A), QColor(0xF5, 0x9A, 0x1C)};
    const QColor colour = kColours[picture_ >= 0 && picture_ < 4 ? picture_ : 0];
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (faded_) painter.setOpacity(0.35);
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
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void ScrollingPage::Hold(QWidget* page) {
    setWidget(page);
    page->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
    page->installEventFilter(this);
    updateGeometry();
}

QSize ScrollingPage::sizeHint() const {
    if (!widget()) return QScrollArea::sizeHint();
    // The frame of a tab takes a little more than it says.
    constexpr QSize kFrameOfTab(4, 4);
    return widget()->sizeHint() + kFrameOfTab;
}

// As wide as the page needs with its bar beside it, as there is no scrolling sideways.
QSize ScrollingPage::minimumSizeHint() const {
    const int page = widget() ? widget()->minimumSizeHint().width() : 0;
    return {page + verticalScrollBar()->sizeHint().width(), 6 * fontMetrics().lineSpacing()};
}

void ScrollingPage::Reveal(QWidget& widget) {
    for (QWidget* at = widget.parentWidget(); at != nullptr; at = at->parentWidget()) {
        auto* page = dynamic_cast<ScrollingPage*>(at);
        if (page) page->ensureWidgetVisible(&widget, 0, kGap);
    }
}

bool ScrollingPage::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::eventFilter(watched, event);
}

// PinnedPage

PinnedPage::PinnedPage() : outer_(new QVBoxLayout(this)) {
    constexpr int kWidest = 190;  // characters
    outer_->setContentsMargins(0, 0, 0, 0);
    outer_->setSpacing(0);
    auto* inner = new QWidget;
    inner->setMaximumWidth(kWidest * fontMetrics().averageCharWidth());
    content_ = new QVBoxLayout(inner);
    content_->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    content_->setSpacing(kMargin);
    auto* page = new QWidget;
    auto* centre = new QHBoxLayout(page);
    centre->setContentsMargins(0, 0, 0, 0);
    centre->addWidget(inner, 1);
    auto* holder = new ScrollingPage;
    holder->Hold(page);
    outer_->addWidget(holder, 1);
}

void PinnedPage::Pin(QLayout* buttons) {
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Plain);
    line->setForegroundRole(QPalette::Mid);
    outer_->addWidget(line);
    buttons->setContentsMargins(kMargin, kGap, kMargin, kGap);
    outer_->addLayout(buttons);
}

// ButtonFlow

ButtonFlow::ButtonFlow(QWidget* parent) : QLayout(parent) {
    setContentsMargins(0, 0, 0, 0);
    setSpacing(kSmallGap);
}

ButtonFlow::~ButtonFlow() {
    for (QLayoutItem* item : items_) delete item;
}

QLayoutItem* ButtonFlow::itemAt(int index) const {
    const auto place = static_cast<std::size_t>(index);
    return place < items_.size() ? items_[place] : nullptr;
}

QLayoutItem* ButtonFlow::takeAt(int index) {
    QLayoutItem* const item = itemAt(index);
    if (item) items_.erase(items_.begin() + index);
    return item;
}

QSize ButtonFlow::Cell() const {
    QSize cell(1, 1);
    for (const QLayoutItem* item : items_) cell = cell.expandedTo(item->sizeHint());
    return cell;
}

int ButtonFlow::Columns(int width) const {
    return std::clamp((width + spacing()) / (Cell().width() + spacing()), 1, std::max(1, count()));
}

int ButtonFlow::heightForWidth(int width) const {
    const int columns = Columns(width);
    const int rows = (count() + columns - 1) / columns;
    return rows * Cell().height() + std::max(0, rows - 1) * spacing();
}

QSize ButtonFlow::sizeHint() const { return minimumSize(); }

QSize ButtonFlow::minimumSize() const { return Cell(); }

void ButtonFlow::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    const QSize cell = Cell();
    const int columns = Columns(rect.width());
    for (int i = 0; i < count(); ++i) {
        const QPoint corner(rect.x() + i % columns * (cell.width() + spacing()),
                            rect.y() + i / columns * (cell.height() + spacing()));
        items_[static_cast<std::size_t>(i)]->setGeometry({corner, cell});
    }
}

// NameLabel

void NameLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const int wanted = fontMetrics().horizontalAdvance(text());
    if (wanted > width()) {
        QFont smaller = font();
        smaller.setPixelSize(std::max(5, fontInfo().pixelSize() * width() / wanted));
        painter.setFont(smaller);
    }
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), static_cast<int>(alignment()), text());
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
    laid_out_ = false;
    if (isVisibleTo(window())) LayOut();
}

void LongTextView::showEvent(QShowEvent* event) {
    if (!laid_out_) LayOut();
    QPlainTextEdit::showEvent(event);
}

void LongTextView::LayOut() {
    laid_out_ = true;
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
    return {fontMetrics().averageCharWidth() * 8, sizeHint().height()};
}

}  // namespace kestrane
