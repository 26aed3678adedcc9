#include "forms/review_window.h"

#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>

#include "forms/latin1.h"
#include "forms/look/spacing.h"

namespace kestrane {
namespace {

QString TextOf(const PendingChange& change, const std::string& value) {
    return change.setting->secret ? QStringLiteral("(secret)") : ToQt(value);
}

}  // namespace

ReviewWindow::ReviewWindow(Workbench& bench, std::function<void(Control&)> go_to, QWidget* owner)
    : QDialog(owner), bench_(bench), go_to_(std::move(go_to)), list_(new QTreeWidget) {
    setWindowTitle(QStringLiteral("Review Changes"));
    setObjectName(QStringLiteral("ReviewChanges"));
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kGap);
    list_->setHeaderLabels({QStringLiteral("Setting"), QStringLiteral("On the unit"),
                            QStringLiteral("On the screen")});
    list_->setRootIsDecorated(false);
    list_->setAlternatingRowColors(true);
    list_->setAccessibleName(QStringLiteral("Pending changes"));
    list_->header()->setSectionResizeMode(QHeaderView::Stretch);
    column->addWidget(list_, 1);
    auto* row = new QHBoxLayout;
    auto* show = new QPushButton(QStringLiteral("&Go to"));
    auto* one = new QPushButton(QStringLiteral("&Revert"));
    auto* all = new QPushButton(QStringLiteral("Revert &all"));
    auto* close = new QPushButton(QStringLiteral("&Close"));
    for (QPushButton* button : {show, one, all}) row->addWidget(button);
    row->addStretch(1);
    row->addWidget(close);
    column->addLayout(row);
    show->setDefault(true);
    QObject::connect(list_, &QTreeWidget::itemActivated, this, [this] { GoTo(); });
    QObject::connect(show, &QPushButton::clicked, this, [this] { GoTo(); });
    QObject::connect(one, &QPushButton::clicked, this, [this] {
        if (const Setting* setting = Selected()) bench_.pending.Revert(*setting);
        Fill();
    });
    QObject::connect(all, &QPushButton::clicked, this, [this] {
        bench_.pending.RevertAll();
        Fill();
    });
    QObject::connect(close, &QPushButton::clicked, this, &QDialog::close);
    resize(640, 320);
    Fill();
}

void ReviewWindow::Fill() {
    list_->clear();
    for (const PendingChange& change : bench_.pending.List()) {
        auto* item =
            new QTreeWidgetItem(list_, {QString::fromStdString(change.setting->key),
                                        TextOf(change, change.before), TextOf(change, change.now)});
        item->setToolTip(0, QString::fromStdString(change.setting->doc));
    }
    if (list_->topLevelItemCount() > 0) list_->setCurrentItem(list_->topLevelItem(0));
}

const Setting* ReviewWindow::Selected() const {
    const QTreeWidgetItem* item = list_->currentItem();
    return item ? FindSetting(item->text(0).toStdString()) : nullptr;
}

void ReviewWindow::GoTo() {
    const Setting* const setting = Selected();
    if (!setting) return;
    close();
    if (Control* control = ControlOf(bench_.tool.main_form, *setting)) go_to_(*control);
}

}  // namespace kestrane
