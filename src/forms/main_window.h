#pragma once

// The main window: connection, relay IDs and progress on top, the tabs, socket status and help
// below, and the diagnostics panel while the form is tall. A tab's page is made when it is first
// shown, or soon after the window was first painted.

#include <QProgressBar>
#include <array>

#include "forms/form_window.h"
#include "screen/main_form.h"

namespace kestrane {

class MainWindow : public FormWindow {
  public:
    MainWindow(MainForm& form, Hand& hand, WhyDisabledFunction why_disabled);

    // Makes the pages of the tabs that were not shown yet.
    void MakeAllPages();

  protected:
    void FormChanged() override;
    void paintEvent(QPaintEvent* event) override;

  private:
    FrameView* ConnectionPanel();
    FrameView* RelayPanel();
    FrameView* ProgressPanel();
    QWidget* DiagnosticsPanel();
    QTabWidget* MakeTabs();
    QLayout* StatusRow();
    void NeedPage(int tab);
    void PreparePages();
    void ShowProgress();
    void Chain();

    MainForm& form_;
    QTabWidget* tabs_ = nullptr;
    QProgressBar* progress_ = nullptr;
    QWidget* diagnostics_ = nullptr;
    std::array<bool, 9> made_{};
    bool painted_ = false;
    // What takes the keyboard, in its order: above the pages, on them, below.
    std::vector<QWidget*> head_;
    std::array<std::vector<QWidget*>, 9> pages_;
    std::vector<QWidget*> tail_;
};

}  // namespace kestrane
