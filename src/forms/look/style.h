#pragma once

// Fusion with outlines that can be seen: what can be used has an outline of 3:1 against what it
// stands on, in either palette. Fusion's own are too faint on both.

#include <QProxyStyle>

namespace kestrane {

// The outline of boxes, buttons, check boxes and sliders.
QColor OutlineColour(const QPalette& palette, bool enabled);

// Buttons with the property kPrimary are the one thing to do on their page.
inline constexpr char kPrimary[] = "primary";
// Boxes with the property kFaulty hold what can't be written; with kChanged, what the unit has not;
// with kNotTaken, what was written and the unit has not kept.
inline constexpr char kFaulty[] = "faulty";
inline constexpr char kChanged[] = "changed";
inline constexpr char kNotTaken[] = "notTaken";

class LookStyle : public QProxyStyle {
  public:
    LookStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    QIcon standardIcon(StandardPixmap which, const QStyleOption* option,
                       const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override;
};

}  // namespace kestrane
