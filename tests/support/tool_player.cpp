#include "support/tool_player.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <sstream>
#include <stdexcept>

#include "support/memory_peer.h"
#include "support/source_lines.h"
#include "support/story_words.h"
#include "support/tool_look.h"
#include "support/unit_peer.h"
#include "support/virtual_platform.h"
#include "tool/session_variables.h"

namespace kestrane {
namespace {

using std::chrono::milliseconds;

[[noreturn]] void Fault(const std::string& text) { throw std::runtime_error(text); }

void Expect(const Refusal& refusal) {
    if (refusal) Fault(*refusal);
}

int Hex(const std::string& word) { return std::stoi(word, nullptr, 16); }
milliseconds Time(const std::string& word) { return milliseconds{std::stoi(word)}; }

// The word as a value of the type that `present` has.
Value ValueOf(const std::string& word, const Value& present) {
    if (std::holds_alternative<std::string>(present)) return word;
    if (word == "true" || word == "false") return word == "true";
    return std::stol(word);
}

class Player : private ScreenListener, private JournalObserver {
  public:
    explicit Player(const std::vector<std::string>& lines) : lines_(lines) {}
    ~Player() override {
        if (!tool_) return;
        tool_->screen.RemoveListener(*this);
        tool_->link.journal().RemoveObserver(*this);
    }

    std::string Play() {
        PlayLines();
        return std::move(out_);
    }

  private:
    using Verbs = std::map<std::string, std::function<void(const StoryWords&)>>;

    // Until the end, or the line that closes the editor.
    void PlayLines() {
        while (at_ < lines_.size()) {
            const std::string& line = lines_[at_++];
            if (line.starts_with("    ")) continue;
            out_ += line + "\n";
            if (line == "close" || line == "quietly close") return;
            if (line.empty() || line[0] == '#') continue;
            try {
                Do(line);
            } catch (const std::exception& error) {
                out_ += std::string("    FAULT ") + error.what() + "\n";
            }
        }
    }

    void Do(const std::string& line) {
        StoryWords words = WordsOf(line);
        if (const auto told = TellOfSource(line)) {
            log_ = *told;
            return TellLog();
        }
        if (words[0] == "unit") return UseUnit(words.at(1));
        if (!tool_) Start();
        const bool quiet = words[0] == "quietly";
        if (quiet) words.erase(words.begin());
        if (words[0] == "edit") return Edit(Time(words.at(1)), quiet);
        Tell(!Act(words) || quiet);
    }

    // True for what shows, false for what only prepares.
    bool Act(const StoryWords& words) {
        const auto prepares = preparations_.find(words[0]);
        const auto acts = actions_.find(words[0]);
        if (prepares != preparations_.end()) {
            prepares->second(words);
        } else if (acts != actions_.end()) {
            acts->second(words);
        } else {
            Fault("no such word: " + words[0]);
        }
        return acts != actions_.end();
    }

    void UseUnit(const std::string& type) {
        unit_ = std::make_unique<UnitPeer>(
            world_.tcpsend, world_.time,
            unit::UnitOptions{.type = type == "636"      ? unit::UnitType::k636
                                      : type == "single" ? unit::UnitType::kSingle
                                                         : unit::UnitType::kCms,
                              .old_firmware = type == "old"});
    }
    void Start() {
        if (!unit_) memory_ = std::make_unique<MemoryPeer>(world_.tcpsend);
        // The slash at its end is not doubled.
        tool_.emplace(world_.platform(), ToolOptions{.versions_url = "http://server.example/"});
        tool_->screen.AddListener(*this);
        tool_->link.journal().AddObserver(*this);
        tool_->Start();
        seen_ = LookAt(*tool_);
    }

    // What the world holds and answers from now on.
    const Verbs preparations_{
        {"store", [this](const StoryWords& w) { Store(std::stoi(w.at(1)), w.at(2), w.at(3)); }},
        {"answer",
         [this](const StoryWords& w) {
             memory_->Answer(HexPairs(w.at(1)), w.size() > 2 ? w[2] : "");
         }},
        {"answers",
         [this](const StoryWords& w) {
             for (int n = 1; n <= std::stoi(w.at(2)); ++n) {
                 memory_->Answer(HexPairs(w[1]) + static_cast<char>(n), w.at(3));
             }
         }},
        {"reply",
         [this](const StoryWords& w) {
             memory_->ReplyRaw(HexPairs(w.at(1)), w.size() > 2 ? HexPairs(w[2]) : "");
         }},
        {"refuse",
         [this](const StoryWords& w) {
             const std::string command = HexPairs(w.at(1));
             memory_->ReplyRaw(command, Framed(command.substr(0, 2) + '\x16'));
         }},
        {"drop",
         [this](const StoryWords& w) {
             unit_->line().PassNext(std::stoi(w.at(1)));
             unit_->line().DropNext(1);
         }},
        {"chooses", [this](const StoryWords& w) { world_.files.Choose(w.at(1)); }},
        {"disk", [this](const StoryWords& w) { world_.disk.files[w.at(1)] = w.at(2); }},
        {"disk-fault", [this](const StoryWords& w) { world_.disk.faults[w.at(1)] = w.at(2); }},
        {"spoil",
         [this](const StoryWords& w) {
             std::string& file = world_.disk.files.at(w.at(1));
             file.replace(file.find(w.at(2)), w[2].size(), w.at(3));
         }},
        {"say-no", [this](const StoryWords&) { world_.boxes.Answer(BoxButton::kNo); }},
        {"draw",
         [this](const StoryWords& w) {
             for (const char c : HexPairs(w.at(1))) {
                 world_.random.Queue((static_cast<unsigned char>(c) + 0.5) / 255);
             }
         }},
        {"connects-are",
         [this](const StoryWords& w) {
             using Answer = FakeSocket::ConnectAnswer;
             world_.tcpsend.set_connect_answer(w.at(1) == "refused" ? Answer::kRefuse
                                                                    : Answer::kAccept);
         }},
        {"connected", [this](const StoryWords& w) { ConnectOn(std::stoi(w.at(1))); }},
        {"settings-read",
         [this](const StoryWords&) {
             Connect();
             Expect(tool_->hand.Click(tool_->main_form.network.cmdReadNetworkSettings));
         }},
    };

    const Verbs actions_{
        {"click", [this](const StoryWords& w) { Expect(tool_->hand.Click(Find(w.at(1)))); }},
        {"type", [this](const StoryWords& w) { Expect(tool_->hand.Type(Box(w.at(1)), w.at(2))); }},
        {"press",
         [this](const StoryWords& w) {
             Expect(tool_->hand.Press(Box(w.at(1)), std::stoi(w.at(2))));
         }},
        {"choose",
         [this](const StoryWords& w) {
             Expect(tool_->hand.Choose(Find(w.at(1)), std::stoi(w.at(2))));
         }},
        {"go", [this](const StoryWords& w) { Expect(tool_->hand.GoTo(Find(w.at(1)))); }},
        {"leave", [this](const StoryWords&) { tool_->hand.Leave(); }},
        {"key", [this](const StoryWords& w) { tool_->hand.Key(std::stoi(w.at(1))); }},
        {"call", [this](const StoryWords& w) { Find(w.at(1)).on_click(); }},
        {"set", [this](const StoryWords& w) { Set(w); }},
        {"wait", [this](const StoryWords& w) { world_.RunFor(Time(w.at(1))); }},
        {"after",
         [this](const StoryWords& w) {
             After(Time(w.at(1)), {w.begin() + 2, w.end()});
         }},
        {"look", [this](const StoryWords&) { Tell(); }},
        {"page", [this](const StoryWords& w) { world_.http.Complete(w.at(1), Time(w.at(2))); }},
        {"no-page", [this](const StoryWords& w) { world_.http.Fail(404, w.at(1), Time(w.at(2))); }},
        {"peer-closes", [this](const StoryWords&) { world_.tcpsend.CloseByPeer(); }},
        {"state",
         [this](const StoryWords& w) {
             world_.tcpsend.ForceState(static_cast<SocketState>(std::stoi(w.at(1))));
         }},
        {"image", [this](const StoryWords& w) { Fill(2 * Hex(w.at(1)), HexPairs(w.at(2))); }},
        {"head", [this](const StoryWords& w) { ShowFile(w.at(1), std::stoi(w.at(2))); }},
        {"show",
         [this](const StoryWords& w) {
             for (const std::string& line : Shown(*tool_, w)) log_.push_back(line);
         }},
        {"memory",
         [this](const StoryWords& w) {
             log_.push_back(
                 HexText(BoardOf(std::stoi(w.at(1)))
                             .Read(static_cast<std::size_t>(Hex(w.at(2))), std::stoul(w.at(3)))));
         }},
    };

    // At "0200", or in each block from "0200-0280".
    void Store(int board, const std::string& where, const std::string& bytes) {
        const std::size_t dash = where.find('-');
        const int last = Hex(dash == std::string::npos ? where : where.substr(dash + 1));
        for (int address = Hex(where); address <= last; address += 16) {
            if (memory_) {
                memory_->memory[{board, address}] = bytes;
            } else {
                BoardOf(board).Write(static_cast<std::size_t>(address), bytes);
            }
        }
    }
    unit::BoardMemory& BoardOf(int board) {
        return board == 250 ? unit_->unit().Relay() : unit_->unit().Display();
    }
    void Fill(int first, const std::string& bytes) {
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            tool_->macro_editor.state().image.Set(static_cast<std::size_t>(first) + i,
                                                  static_cast<std::uint8_t>(bytes[i]));
        }
    }
    void Connect() {
        Expect(tool_->hand.Click(tool_->main_form.cmdConnect));
        world_.RunFor(milliseconds{250});
    }
    void ConnectOn(int tab) {
        MainForm& form = tool_->main_form;
        Connect();
        tool_->session.AdminLoggedIn = true;
        SetTabsEnabled(form, true);
        form.SSTab1.SetTabVisible(tab, true);
        form.SSTab1.SetTab(tab);
    }
    void After(milliseconds time, const StoryWords& later) {
        world_.time.After(time, [this, later] {
            log_.push_back("now " + later[0] + (later.size() > 1 ? " " + later[1] : ""));
            Act(later);
        });
    }
    // The editor is modal: what is done in it runs as an event of its own, after `opening`.
    void Edit(milliseconds opening, bool quiet) {
        bool returned = false;
        world_.time.After(milliseconds{1}, [&] {
            tool_->main_form.triggers.cmdEditMacro.on_click();
            returned = true;
        });
        ScriptEditForm& form = tool_->script_edit_form;
        world_.time.After(opening, [&] {
            // A poll that waits now could not go on before the lines have been played.
            const bool polling = form.timUpdate.Enabled();
            form.timUpdate.SetEnabled(false);
            world_.time.After(milliseconds{230}, [this, polling, quiet, &form] {
                form.timUpdate.SetEnabled(polling);
                Tell(quiet);
                PlayLines();
                if (form.Visible()) Expect(tool_->hand.Close(form));
            });
        });
        world_.loop.RunUntil([&] { return returned; }, std::chrono::hours{2});
        Tell(lines_[at_ - 1].starts_with("quietly"));
    }

    Control& Find(const std::string& name) {
        for (Form* form : tool_->screen.forms()) {
            if (Control* control = form->Find(name)) return *control;
        }
        Fault("no control " + name);
    }
    TextBox& Box(const std::string& name) { return dynamic_cast<TextBox&>(Find(name)); }
    // NAME [property] VALUE; the name of a control, or of a variable of the session.
    void Set(const StoryWords& words) {
        for (const SessionVariable& variable : SessionVariables(*tool_)) {
            if (variable.name != words.at(1)) continue;
            return Expect(variable.set(ValueOf(words.at(2), variable.get())));
        }
        Control& control = Find(words.at(1));
        const PropertyList list = control.Properties();
        const std::string& name = words.size() > 3 ? words[2] : list.front().first;
        for (const auto& [property, value] : list) {
            if (property == name) return Expect(control.Assign(name, ValueOf(words.back(), value)));
        }
        Fault("no property " + name);
    }
    void ShowFile(const std::string& path, int most) {
        std::istringstream lines(world_.disk.files.at(path));
        for (std::string line; most > 0 && std::getline(lines, line); --most) {
            log_.push_back(Quoted(line));
        }
    }

    void ControlChanged(Control& control, Property property) override {
        TakeOutside();
        if (property == Property::kCaption &&
            (control.name() == "lblMemoryBlock" || control.name() == "lblTopStatus")) {
            log_.push_back("says " + Quoted(dynamic_cast<Label&>(control).Caption()));
        }
        if (property == Property::kPointer) {
            log_.push_back(control.form().Pointer() == Form::kHourglass ? "hourglass" : "arrow");
        }
    }
    void OperationEnded(const OperationRecord& operation) override {
        using End = OperationRecord::End;
        TakeOutside();
        log_.push_back("operation " + Quoted(operation.name) +
                       (operation.Complete()               ? " complete"
                        : operation.end == End::kOvertaken ? " overtaken"
                                                           : " stopped"));
    }

    // What went out since the last time.
    void TakeOutside() {
        const auto& frames = world_.tcpsend.frames();
        for (; frames_ < frames.size(); ++frames_) {
            const auto& [time, connection, bytes] = frames[frames_];
            log_.push_back((connection > 1 ? std::to_string(connection) : "") + "> " +
                           HexText(TextOfFrame(bytes)));
        }
        for (; asked_ < world_.files.asked().size(); ++asked_) {
            const auto& asked = world_.files.asked()[asked_];
            log_.push_back(
                (asked.save ? "asks to save " : "asks to load ") +
                Quoted(asked.title + "|" + asked.filter + "|" + asked.default_extension));
        }
        for (; fetches_ < world_.http.requests().size(); ++fetches_) {
            const auto& fetch = world_.http.requests()[fetches_];
            log_.push_back("fetches " + fetch.url + (fetch.bypass_cache ? " past all caches" : ""));
        }
    }

    // What came several times in a row stands once.
    void TellLog() {
        for (std::size_t i = 0, next = 0; i < log_.size(); i = next) {
            while (next < log_.size() && log_[next] == log_[i]) ++next;
            out_ += "    " + log_[i] + (next - i > 1 ? " x" + std::to_string(next - i) : "") + "\n";
        }
        log_.clear();
    }

    // Writes what has happened since the last time, or leaves it out.
    void Tell(bool quiet = false) {
        const std::size_t before = out_.size();
        TakeOutside();
        for (; boxes_ < world_.boxes.shown().size(); ++boxes_) {
            const auto& box = world_.boxes.shown()[boxes_];
            log_.push_back("box " + Quoted(box.title + "|" + box.text));
        }
        TellLog();
        std::vector<Seen> now = LookAt(*tool_);
        for (const std::string& line : Differences(seen_, now)) out_ += "    " + line + "\n";
        seen_ = std::move(now);
        if (beeps_ != world_.sound.beeps()) {
            beeps_ = world_.sound.beeps();
            out_ += "    " + std::to_string(beeps_) + ": beeps\n";
        }
        if (quiet) out_.resize(before);
    }

    const std::vector<std::string>& lines_;
    std::size_t at_ = 0;
    std::string out_;
    VirtualPlatform world_;
    std::unique_ptr<UnitPeer> unit_;
    std::unique_ptr<MemoryPeer> memory_;
    std::optional<Tool> tool_;
    std::vector<std::string> log_;
    std::vector<Seen> seen_;
    // How many have been told.
    std::size_t frames_ = 0;
    std::size_t boxes_ = 0;
    std::size_t fetches_ = 0;
    std::size_t asked_ = 0;
    int beeps_ = 0;
};

}  // namespace

std::string PlayOnTool(const std::vector<std::string>& lines) { return Player(lines).Play(); }

}  // namespace kestrane
