#include "forms/look/style.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QPixmap>
#include <QStyleOption>
#include <QWidget>

#include "forms/look/look.h"

namespace kestrane {
namespace {

bool Has(const QWidget* widget, const char* property) {
    return widget && widget->property(property).toBool();
}

void Stroke(QPainter* painter, const QRect& rect, const QColor& colour, qreal width = 1,
            qreal radius = 2) {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(colour, width));
    const qreal inset = width / 2;
    painter->drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), radius, radius);
    painter->restore();
}

// The outline, or the focus in the colour of selections, or red for what can't be written.
void DrawOutline(QPainter* painter, const QStyleOption& option, const QWidget* widget,
                 const QRect& rect) {
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool focus = enabled && (option.state & QStyle::State_HasFocus);
    if (enabled && (Has(widget, kFaulty) || Has(widget, kNotTaken))) {
        const QColor ground = option.palette.color(QPalette::Base);
        Stroke(painter, rect, Readable(FaultColour(option.palette), ground), 2);
    } else if (focus) {
        Stroke(painter, rect, option.palette.color(QPalette::Active, QPalette::Highlight), 2);
    } else {
        Stroke(painter, rect, OutlineColour(option.palette, enabled));
    }
}

// A bar at the left edge: the unit holds something else.
void DrawChanged(QPainter* painter, const QStyleOption& option, const QWidget* widget) {
    if (!Has(widget, kChanged)) return;
    const QRect& all = option.rect;
    const QRect bar(all.left(), all.top() + 1, 3, all.height() - 2);
    painter->fillRect(bar, ChangedColour(option.palette));
}

void DrawPrimary(QPainter* painter, const QStyleOption& option) {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const bool pressed = option.state & (QStyle::State_Sunken | QStyle::State_On);
    const bool hover = option.state & QStyle::State_MouseOver;
    QColor fill = option.palette.color(QPalette::Button);
    if (pressed) fill = fill.darker(115);
    if (hover && !pressed) fill = fill.lighter(106);
    painter->setBrush(fill);
    painter->setPen(QPen(fill.darker(130), 1));
    painter->drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter->restore();
}

}  // namespace

QColor OutlineColour(const QPalette& palette, bool enabled) {
    const QColor window = palette.color(QPalette::Active, QPalette::Window);
    const bool dark = IsDark(palette);
    if (!enabled) return dark ? window.lighter(160) : window.darker(125);
    return dark ? QColor(0x83, 0x8B, 0x96) : QColor(0x74, 0x7B, 0x85);
}

LookStyle::LookStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    if (element == PE_PanelButtonCommand && Has(widget, kPrimary) &&
        (option->state & State_Enabled)) {
        DrawPrimary(painter, *option);
        if (option->state & State_HasFocus) DrawOutline(painter, *option, widget, option->rect);
        return;
    }
    if (element == PE_FrameFocusRect && Has(widget, kPrimary)) return;
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    switch (element) {
        case PE_FrameLineEdit:
        case PE_IndicatorCheckBox:
            DrawOutline(painter, *option, widget, option->rect);
            DrawChanged(painter, *option, widget);
            break;
        case PE_PanelButtonCommand:
            DrawOutline(painter, *option, widget, option->rect);
            break;
        case PE_IndicatorRadioButton: {
            const int radius = option->rect.height() / 2;
            painter->save();
            painter->setRenderHint(QPainter::Antialiasing);
            painter->setBrush(Qt::NoBrush);
            painter->setPen(OutlineColour(option->palette, option->state & State_Enabled));
            painter->drawEllipse(QRectF(option->rect).center(), radius - 0.5, radius - 0.5);
            painter->restore();
            DrawChanged(painter, *option, widget);
            break;
        }
        default:
            break;
    }
}

void LookStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox) {
        DrawOutline(painter, *option, widget, option->rect);
        DrawChanged(painter, *option, widget);
    } else if (control == CC_ScrollBar) {
        const QRect slider = subControlRect(control, option, SC_ScrollBarSlider, widget);
        Stroke(painter, slider, OutlineColour(option->palette, option->state & State_Enabled));
        if (option->state & State_HasFocus) {
            Stroke(painter, option->rect, option->palette.color(QPalette::Highlight), 2);
        }
    }
}

// A menu bar asks for its "more" at once, and Fusion's would load all picture formats of Qt before
// the first window is up: two arrow heads drawn here instead.
QIcon LookStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                              const QWidget* widget) const {
    if (which != SP_ToolBarHorizontalExtensionButton) {
        return QProxyStyle::standardIcon(which, option, widget);
    }
    constexpr int kSide = 16;
    const qreal scale = qGuiApp->devicePixelRatio();
    QPixmap picture(QSize(kSide, kSide) * scale);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setPen(QPen(QApplication::palette().color(QPalette::WindowText), 1.5));
    for (const int x : {4, 9}) {
        painter.drawPolyline(QPolygon({{x, 4}, {x + 4, 8}, {x, 12}}));
    }
    return QIcon(picture);
}

// All tabs side by side, each with room for its dot.
int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    if (metric == PM_TabBarTabHSpace) return 16;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* data) const {
    if (hint == SH_ToolTip_WakeUpDelay) return 400;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

}  // namespace kestrane
