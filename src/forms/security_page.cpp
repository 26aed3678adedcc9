#include "forms/layout.h"
#include "forms/pages.h"

namespace kestrane {

QWidget* BuildSecurityPage(Mirror& mirror, SecurityTab& tab) {
    auto* page = new PinnedPage;
    QVBoxLayout* outer = page->content();

    FrameView* frame = mirror.Make(tab.fraSecuritySettings);
    QGridLayout* grid = GridIn(frame);
    grid->setVerticalSpacing(kGap);
    grid->addWidget(mirror.Make(tab.Label16), 0, 0);
    grid->addWidget(mirror.Make(tab.lblWebSecurityEnable), 0, 1);
    grid->addWidget(mirror.Make(tab.Label66), 0, 2, Qt::AlignCenter);
    Label* const captions[] = {&tab.lblViewPass, &tab.lblControlPass, &tab.lblAdminPass};
    for (int level = 0; level < 3; ++level) {
        AddField(mirror, grid, level + 1, 0, *captions[level], tab.txtWebPassword(level), 20);
        QCheckBox* disabled = mirror.Make(tab.chkWebSecurityDisable(level));
        disabled->setAccessibleName(QString::fromStdString(captions[level]->Caption()) +
                                    QStringLiteral(" disabled"));
        grid->addWidget(disabled, level + 1, 2, Qt::AlignCenter);
    }
    grid->setColumnMinimumWidth(1, 12 * kGap);
    outer->addWidget(frame, 0, Qt::AlignLeft);

    auto* help = new QVBoxLayout;
    help->setContentsMargins(kMargin, kGap, kMargin, 0);
    help->setSpacing(kGap - 2);
    for (Label& text : tab.txtPswHelp) {
        QLabel* label = mirror.Make(text);
        label->setWordWrap(true);
        help->addWidget(label);
    }
    outer->addLayout(help);
    outer->addStretch(1);
    page->Pin(ButtonRow(mirror, {&tab.cmdReadWBISettings, &tab.cmdWriteWBISettings}));
    return page;
}

}  // namespace kestrane
