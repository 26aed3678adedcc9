#pragma once

// The main window: menu, the unit's header, connection, relay IDs and progress on top, the tabs,
// messages and help below, and on demand the log and, while the form is tall, the diagnostics. A
// tab's page is made when it is first shown, or soon after the window was first painted.

#include <QMenuBar>
#include <QProgressBar>
#include <array>
#include <memory>

#include "editing/workbench.h"
#include "forms/fading.h"
#include "forms/form_window.h"
#include "forms/log_pane.h"
#include "forms/marks.h"
#include "forms/message_strip.h"
#include "forms/unit_header.h"
#include "forms/used_addresses.h"
#include "screen/main_form.h"

namespace kestrane {

class MainWindow : public FormWindow {
  public:
    MainWindow(Workbench& bench, WhyDisabledFunction why_disabled);

    // Room for the tallest page, though its tab may not have been shown yet.
    QSize sizeHint() const override;
    void MakeWhole() override;
    // Makes the pages of the tabs that were not shown yet.
    void MakeAllPages();

  protected:
    void FormChanged() override;
    void paintEvent(QPaintEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    FrameView* ConnectionPanel();
    FrameView* RelayPanel();
    FrameView* ProgressPanel();
    QWidget* DiagnosticsPanel();
    QTabWidget* MakeTabs();
    QLayout* StatusRow();
    void NeedPage(int tab);
    void PreparePages();
    void KeepLargeEnough();
    void ShowProgress();
    void Chain();
    void FillMenu();
    void ToggleLog();
    void Review();
    void GoToControl(Control& control);
    // What is dropped, and by what.
    struct Loss {
        QString because;
        int changes = 0;
    };
    // By a click on this control, or a choice in it.
    Loss WouldDiscard(const Control& control) const;
    // Asks if there is anything to lose.
    bool MayDiscard(const Loss& loss);
    bool MayDiscardAll(const QString& because);
    void AroundClick(Control& control, const std::function<void()>& click);
    // Marks at boxes and tabs, the count, header and title; once an event-loop pass.
    void ScheduleMarks();
    void ShowMarks();

    Workbench& bench_;
    MainForm& form_;
    QMenuBar* menu_ = nullptr;
    Fading* fading_ = nullptr;
    UnitHeader* header_ = nullptr;
    UsedAddresses* used_ = nullptr;
    MessageStrip* strip_ = nullptr;
    LogPane* log_ = nullptr;  // from its first showing on
    int below_pages_ = 0;     // its place in the layout
    bool marks_scheduled_ = false;
    int furthest_ = 0;  // of the progress of the operation under way, in thousandths
    std::uint64_t progress_of_ = 0;
    QTabWidget* tabs_ = nullptr;
    std::unique_ptr<Marks> marks_;
    QProgressBar* progress_ = nullptr;
    QWidget* diagnostics_ = nullptr;
    std::array<bool, 9> made_{};
    bool made_frame_ = false;  // all but the pages
    bool painted_ = false;
    // What takes the keyboard, in its order: above the pages, on them, below.
    std::vector<QWidget*> head_;
    std::array<std::vector<QWidget*>, 9> pages_;
    std::vector<QWidget*> tail_;
};

}  // namespace kestrane
