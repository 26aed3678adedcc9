#include "forms/marks.h"

#include <QPainter>
#include <QTabBar>

#include "forms/look/look.h"
#include "forms/look/style.h"

namespace kestrane {
namespace {

// Of an option group the chosen one bears the mark, which goes along with the choice.
void Move(const char* property, std::set<QWidget*>& marked, std::set<QWidget*> wanted) {
    const auto set = [property](QWidget* view, bool on) {
        view->setProperty(property, on);
        view->update();
    };
    marked.swap(wanted);
    for (QWidget* view : wanted) {
        if (!marked.contains(view)) set(view, false);
    }
    for (QWidget* view : marked) {
        if (!wanted.contains(view)) set(view, true);
    }
}

}  // namespace

Marks::Marks(Workbench& bench, Mirror& mirror, QTabWidget& tabs, int pages)
    : bench_(bench), mirror_(mirror), tabs_(tabs), pages_(pages) {
    for (int page = 0; page < pages_; ++page) MarkTab(page, false);
}

void Marks::Show() {
    std::set<int> pages;
    std::set<QWidget*> changed;
    std::set<QWidget*> not_taken;
    for (const Setting* setting : EditableSettings()) {
        const bool differs = bench_.pending.Differs(*setting);
        const bool lost = bench_.verification.NotTaken(*setting).has_value();
        if (!differs && !lost) continue;
        pages.insert(PageOfTab(setting->tab));
        const Control* const control = ControlOf(bench_.tool.main_form, *setting);
        QWidget* const view = control ? mirror_.WidgetOf(*control) : nullptr;
        if (view && differs) changed.insert(view);
        if (view && lost) not_taken.insert(view);
    }
    Move(kChanged, changed_, std::move(changed));
    Move(kNotTaken, not_taken_, std::move(not_taken));
    for (int page = 0; page < pages_; ++page) MarkTab(page, pages.contains(page));
}

// The icon keeps its place when there is no dot, so that no tab moves.
void Marks::MarkTab(int page, bool marked) {
    constexpr int kDot = 8;
    QTabBar* const bar = tabs_.tabBar();
    const QVariant colour = marked ? ChangedColour(tabs_.palette()) : QColor(Qt::transparent);
    if (bar->tabData(page) == colour) return;
    bar->setTabData(page, colour);
    QPixmap dot(2 * kDot, 2 * kDot);
    dot.fill(Qt::transparent);
    QPainter painter(&dot);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour.value<QColor>());
    painter.drawEllipse(dot.rect());
    painter.end();
    tabs_.setIconSize({kDot, kDot});
    tabs_.setTabIcon(page, QIcon(dot));
}

}  // namespace kestrane
