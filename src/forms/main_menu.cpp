#include "forms/main_menu.h"

#include <QAction>
#include <QFile>
#include <QFileDialog>
#include <QKeySequence>

#include "configuration/tabs.h"
#include "editing/configuration_files.h"

namespace kestrane {
namespace {

constexpr int kPages = 7;

class Filler {
  public:
    Filler(QMenuBar& bar, Workbench& bench, Mirror& mirror, WindowActions actions)
        : bar_(bar), bench_(bench), mirror_(mirror), actions_(std::move(actions)) {}

    void Fill() {
        File();
        Edit();
        Unit();
        View();
        QMenu* help = bar_.addMenu(QStringLiteral("&Help"));
        AddClick(help, QStringLiteral("&Help for this tab"), form().cmdHelp, Qt::Key_F1);
    }

  private:
    MainForm& form() { return bench_.tool.main_form; }

    QAction* Add(QMenu* menu, const QString& text, const QKeySequence& keys,
                 std::function<void()> run) {
        QAction* action = menu->addAction(text);
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WindowShortcut);
        bar_.window()->addAction(action);
        QObject::connect(
            action, &QAction::triggered, &bar_,
            [this_mirror = &mirror_, run = std::move(run)] { this_mirror->Post(run); });
        return action;
    }

    // Enabled as the control is, at the moment when the menu opens. One on a tab brings it up.
    void AddClick(QMenu* menu, const QString& text, Button& button, const QKeySequence& keys) {
        QAction* action = menu->addAction(text);
        action->setShortcut(keys);
        bar_.window()->addAction(action);
        const TabRow* const tab = TabOf(button);
        QObject::connect(action, &QAction::triggered, &bar_,
                         [mirror = &mirror_, tabs = &form().SSTab1, tab, &button] {
                             const bool elsewhere = tab && tabs->Tab() != tab->page;
                             if (elsewhere && button.Enabled()) {
                                 mirror->Post([=] { mirror->hand().Choose(*tabs, tab->page); });
                             }
                             mirror->Click(button);
                         });
        QObject::connect(menu, &QMenu::aboutToShow, action, [action, tab, &button] {
            action->setEnabled(tab ? button.Enabled() : button.Usable());
        });
        QObject::connect(menu, &QMenu::aboutToHide, action, [action] { action->setEnabled(true); });
    }

    // What differs goes to the log as well, a line each.
    static FileOutcome CompareAndList(Workbench& bench, const std::string& path) {
        FileOutcome outcome = CompareConfiguration(bench, path);
        for (const FileDifference& change : outcome.differences) {
            const bool secret = change.setting->secret;
            bench.messages.Add(MessageKind::kWarning, change.setting->key + ": " +
                                                          (secret ? "(secret)" : change.on_screen) +
                                                          ", in the file " +
                                                          (secret ? "(secret)" : change.in_file));
        }
        return outcome;
    }

    void AddFile(QMenu* menu, const QString& text, const QString& keys, bool save,
                 FileOutcome (*run)(Workbench&, const std::string&)) {
        QWidget* const owner = bar_.window();
        Workbench* const bench = &bench_;
        Mirror* const mirror = &mirror_;
        Add(menu, text, QKeySequence(keys), [=] {
            auto* dialog = new QFileDialog(owner, QString(text).remove(u'&'));
            dialog->setAttribute(Qt::WA_DeleteOnClose);
            dialog->setAcceptMode(save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
            dialog->setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
            dialog->setNameFilters(
                {QStringLiteral("Configurations (*.mdu.json *.json)"), QStringLiteral("All (*)")});
            dialog->setDefaultSuffix(QStringLiteral("mdu.json"));
            QObject::connect(dialog, &QFileDialog::fileSelected, owner, [=](const QString& path) {
                mirror->Post([=] { run(*bench, QFile::encodeName(path).toStdString()); });
            });
            dialog->open();
        });
    }

    void File() {
        QMenu* menu = bar_.addMenu(QStringLiteral("&File"));
        AddFile(menu, QStringLiteral("&Open configuration..."), QStringLiteral("Ctrl+O"), false,
                OpenConfiguration);
        AddFile(menu, QStringLiteral("&Save configuration..."), QStringLiteral("Ctrl+Shift+S"),
                true, SaveConfiguration);
        AddFile(menu, QStringLiteral("&Compare with file..."), {}, false, CompareAndList);
        menu->addSeparator();
        Add(menu, QStringLiteral("&Quit"), QKeySequence(QStringLiteral("Ctrl+Q")), actions_.quit);
    }

    void Edit() {
        QMenu* menu = bar_.addMenu(QStringLiteral("&Edit"));
        Workbench* const bench = &bench_;
        QAction* undo = Add(menu, QStringLiteral("&Undo"), QKeySequence(QStringLiteral("Ctrl+Z")),
                            [bench] { bench->Undo(); });
        QAction* redo =
            Add(menu, QStringLiteral("&Redo"), QKeySequence(QStringLiteral("Ctrl+Shift+Z")),
                [bench] { bench->Redo(); });
        menu->addSeparator();
        Add(menu, QStringLiteral("Re&view changes..."), QKeySequence(QStringLiteral("Ctrl+R")),
            actions_.review);
        Add(menu, QStringLiteral("Revert &all changes"), {},
            [bench] { bench->pending.RevertAll(); });
        QObject::connect(menu, &QMenu::aboutToShow, undo, [bench, undo, redo] {
            undo->setEnabled(bench->history.CanUndo());
            redo->setEnabled(bench->history.CanRedo());
        });
        QObject::connect(menu, &QMenu::aboutToHide, undo, [undo, redo] {
            undo->setEnabled(true);
            redo->setEnabled(true);
        });
    }

    void Unit() {
        QMenu* menu = bar_.addMenu(QStringLiteral("&Unit"));
        AddClick(menu, QStringLiteral("&Connect"), form().cmdConnect,
                 QKeySequence(QStringLiteral("Ctrl+Return")));
        AddClick(menu, QStringLiteral("&Disconnect"), form().cmdDisconnect,
                 QKeySequence(QStringLiteral("Ctrl+D")));
        menu->addSeparator();
        Mirror* const mirror = &mirror_;
        MainForm* const main = &form();
        Add(menu, QStringLiteral("&Read this tab"), Qt::Key_F5, [mirror, main] {
            if (Button* button = ReadButtonOf(*main, main->SSTab1.Tab())) mirror->Click(*button);
        });
        Add(menu, QStringLiteral("Read &all tabs"), QKeySequence(QStringLiteral("Shift+F5")),
            [this_bench = &bench_, ask = actions_.may_discard] {
                if (ask(QStringLiteral("Reading again"))) ReadAll(*this_bench);
            });
        Add(menu, QStringLiteral("&Write this tab"), QKeySequence(QStringLiteral("Ctrl+S")),
            [mirror, main] {
                if (Button* button = WriteButtonOf(*main, main->SSTab1.Tab())) {
                    mirror->Click(*button);
                }
            });
        Add(menu, QStringLiteral("&Verify what was written"), Qt::Key_F6,
            [bench = &bench_] { bench->Verify(); });
        menu->addSeparator();
        AddClick(menu, QStringLiteral("&Edit macro"), form().triggers.cmdEditMacro,
                 QKeySequence(QStringLiteral("Ctrl+M")));
        AddClick(menu, QStringLiteral("Reset Et&hernet processor"), form().network.cmdResetEthernet,
                 {});
    }

    // All tabs of this unit one after the other, until one can't be read.
    static void ReadAll(Workbench& bench) {
        Tool& tool = bench.tool;
        const int shown = tool.main_form.SSTab1.Tab();
        for (int page = 0; page < kPages; ++page) {
            const TabState& tab = tool.main_form.SSTab1.Tabs()[static_cast<std::size_t>(page)];
            Button* const button = ReadButtonOf(tool.main_form, page);
            if (!tab.visible || !button) continue;
            const auto last = tool.link.journal().last_operation();
            if (tool.hand.Choose(tool.main_form.SSTab1, page) || tool.hand.Click(*button)) break;
            const OperationRecord* read = tool.link.journal().FindOperation(last + 1);
            if (!read || !read->Complete()) return;
        }
        tool.hand.Choose(tool.main_form.SSTab1, shown);
    }

    void View() {
        QMenu* menu = bar_.addMenu(QStringLiteral("&View"));
        Mirror* const mirror = &mirror_;
        MainForm* const main = &form();
        int number = 1;
        for (int page = 0; page < kPages; ++page) {
            const std::string& caption =
                main->SSTab1.Tabs()[static_cast<std::size_t>(page)].caption;
            Add(menu, QString::fromStdString(caption),
                QKeySequence(QStringLiteral("Alt+%1").arg(number++)),
                [mirror, main, page] { mirror->Choose(main->SSTab1, page); });
        }
        menu->addSeparator();
        Add(menu, QStringLiteral("&Log"), Qt::Key_F11, actions_.show_log);
        Add(menu, QStringLiteral("&Diagnostics"), Qt::Key_F12,
            [mirror] { mirror->hand().Key(Hand::kCtrlKey); });
    }

    QMenuBar& bar_;
    Workbench& bench_;
    Mirror& mirror_;
    WindowActions actions_;
};

const TabRow* TabOnPage(int page) {
    for (const TabRow& tab : TabRows()) {
        if (tab.page == page && page >= 0) return &tab;
    }
    return nullptr;
}

}  // namespace

Button* ReadButtonOf(MainForm& form, int page) {
    const TabRow* const tab = TabOnPage(page);
    return tab ? static_cast<Button*>(form.Find(tab->read_button)) : nullptr;
}

Button* WriteButtonOf(MainForm& form, int page) {
    const TabRow* const tab = TabOnPage(page);
    return tab ? static_cast<Button*>(form.Find(tab->write_button)) : nullptr;
}

void FillMenuBar(QMenuBar& bar, Workbench& bench, Mirror& mirror, WindowActions actions) {
    Filler(bar, bench, mirror, std::move(actions)).Fill();
}

}  // namespace kestrane
