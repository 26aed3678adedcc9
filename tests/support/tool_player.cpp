#include "support/tool_player.h"

#include <algorithm>
#include <map>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "macro/assembler.h"
#include "macro/macro_check.h"
#include "support/memory_peer.h"
#include "support/unit_peer.h"
#include "support/virtual_platform.h"
#include "tool/session_variables.h"
#include "tool/tool.h"

namespace kestrane {
namespace {

using std::chrono::milliseconds;

[[noreturn]] void Fault(const std::string& text) { throw std::runtime_error(text); }

// In quotes, what is not printable ASCII as \xNN.
std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        const bool plain = c >= ' ' && c <= '~' && c != '"' && c != '\\';
        quoted += plain ? std::string(1, c) : "\\x" + HexByte(static_cast<std::uint8_t>(c));
    }
    return quoted + "\"";
}

// "\xNN" as the byte.
std::string Unescaped(std::string text) {
    for (std::size_t x = 0; (x = text.find("\\x", x)) != std::string::npos; ++x) {
        text.replace(x, 4, HexPairs(text.substr(x + 2, 2)));
    }
    return text;
}

// Words between blanks, or in quotes with \xNN in them; "\xFF"*16 repeats.
std::vector<std::string> WordsOf(const std::string& line) {
    std::vector<std::string> words;
    for (std::size_t at = 0; (at = line.find_first_not_of(' ', at)) != std::string::npos;) {
        const bool quoted = line[at] == '"';
        const std::size_t end = std::min(line.find(quoted ? '"' : ' ', at + 1), line.size());
        std::string word = quoted ? line.substr(at + 1, end - at - 1) : line.substr(at, end - at);
        word = Unescaped(word);
        at = end + quoted;
        if (quoted && line[at] == '*') {
            const std::string once = word;
            for (int n = std::stoi(line.substr(at + 1)); n > 1; --n) word += once;
            at = std::min(line.find(' ', at), line.size());
        }
        words.push_back(std::move(word));
    }
    return words;
}

std::string ValueText(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return Quoted(*text);
    if (const auto* number = std::get_if<long>(&value)) return std::to_string(*number);
    if (const auto* flag = std::get_if<bool>(&value)) return *flag ? "true" : "false";
    return "none";
}

// The word as a value of the type that `present` has.
Value ValueOf(const std::string& word, const Value& present) {
    if (std::holds_alternative<std::string>(present)) return word;
    if (word == "true" || word == "false") return word == "true";
    return std::stol(word);
}

// Addresses are hexadecimal.
std::string IndexText(const std::string& base, int index) {
    return base == "image" ? HexByte(static_cast<std::uint8_t>(index)) : std::to_string(index);
}

// "lblOutlet(0-3 7)": the members of an array in one.
std::string NameList(const std::vector<std::pair<std::string, int>>& names) {
    std::string list;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto& [base, index] = names[i];
        const bool more = i > 0 && index >= 0 && names[i - 1].first == base;
        if (more) list.pop_back();
        list += more ? " " : (i > 0 ? ", " : "") + base + (index >= 0 ? "(" : "");
        std::size_t last = i;
        while (index >= 0 && last + 1 < names.size() && names[last + 1].first == base &&
               names[last + 1].second == names[last].second + 1) {
            ++last;
        }
        if (index >= 0) list += IndexText(base, index);
        if (last > i) list += "-" + IndexText(base, names[last].second);
        if (index >= 0) list += ")";
        i = last;
    }
    return list;
}

// One property of one control: where it stands, and its value as text.
struct Entry {
    std::string property;
    std::string base;
    int index;  // -1: no array
    std::string value;
};

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
    // Until the end, or the line that closes the editor.
    void PlayLines() {
        while (at_ < lines_.size()) {
            const std::string& line = lines_[at_++];
            if (!line.starts_with("    ")) out_ += line + "\n";
            if (line.empty() || line[0] == '#' || line.starts_with("    ")) continue;
            if (line == "close") return;
            try {
                if (!DoText(line)) Do(WordsOf(line));
            } catch (const std::exception& error) {
                out_ += std::string("    FAULT ") + error.what() + "\n";
            }
        }
    }

    // What is done with a source text: the rest of the line, "\\n" between its lines.
    bool DoText(const std::string& line) {
        const std::string verb = line.substr(0, line.find(' '));
        if (verb != "assemble" && verb != "check") return false;
        std::string source = line.substr(std::min(verb.size() + 1, line.size()));
        for (std::size_t at = 0; (at = source.find("\\n", at)) != std::string::npos;) {
            source.replace(at, 2, "\n");
        }
        source = Unescaped(source);
        verb == "check" ? Check(source) : TryAssembling(source);
        TellLog();
        return true;
    }
    void Check(const std::string& source) {
        for (const Finding& finding : CheckMacroText(source, "CMS")) {
            log_.push_back(std::string(finding.kind) + ": " + FindingLine(finding));
        }
    }
    // The faults, or else the instructions and what was said of triggers.
    void TryAssembling(const std::string& source) {
        const Assembly assembly = Assemble(source);
        for (const SourceFault& fault : assembly.faults) {
            log_.push_back(std::to_string(fault.place.line) + ":" +
                           std::to_string(fault.place.column) + ": " +
                           (fault.is_warning ? "warning: " : "") + fault.text);
        }
        if (!assembly.Good()) return;
        const MacroProgram& program = assembly.program;
        for (int at = 0; at < 0x80; ++at) {
            if (!program.programmed[static_cast<std::size_t>(at)]) continue;
            const auto address = static_cast<std::uint8_t>(at);
            log_.push_back(HexByte(address) + ": " + HexByte(program.image.Opcode(address)) + " " +
                           HexByte(program.image.SecondByte(address)));
        }
    }

    void Do(std::vector<std::string> words) {
        if (words[0] == "unit") return UseUnit(words.at(1));
        if (!tool_) Start();
        const bool quiet = words[0] == "quietly";
        if (quiet) words.erase(words.begin());
        if (words[0] == "edit") return Edit(std::stoi(words.at(1)), quiet);
        const bool prepares = Prepare(words);
        if (!prepares) Act(words);
        Tell(quiet || prepares);
    }

    void UseUnit(const std::string& type) {
        unit::UnitOptions options;
        options.old_firmware = type == "old";
        options.type = type == "636"      ? unit::UnitType::k636
                       : type == "single" ? unit::UnitType::kSingle
                                          : unit::UnitType::kCms;
        unit_ = std::make_unique<UnitPeer>(world_.tcpsend, world_.time, options);
    }

    void Start() {
        if (!unit_) memory_ = std::make_unique<MemoryPeer>(world_.tcpsend);
        // The slash at its end is not doubled.
        tool_.emplace(world_.platform(), ToolOptions{.versions_url = "http://server.example/"});
        tool_->screen.AddListener(*this);
        tool_->link.journal().AddObserver(*this);
        tool_->Start();
        seen_ = Look();
    }

    // What the world holds and answers from now on; true if `words` say that.
    bool Prepare(const std::vector<std::string>& words) {
        const std::string& verb = words[0];
        if (verb == "store") {
            Store(std::stoi(words.at(1)), words.at(2), words.at(3));
        } else if (verb == "answers") {
            for (int n = 1; n <= std::stoi(words.at(2)); ++n) {
                memory_->Answer(HexPairs(words.at(1)) + static_cast<char>(n), words.at(3));
            }
        } else if (verb == "answer") {
            memory_->Answer(HexPairs(words.at(1)), words.size() > 2 ? words[2] : "");
        } else if (verb == "reply") {
            memory_->ReplyRaw(HexPairs(words.at(1)), words.size() > 2 ? HexPairs(words[2]) : "");
        } else if (verb == "refuse") {
            const std::string command = HexPairs(words.at(1));
            memory_->ReplyRaw(command, Framed(command.substr(0, 2) + '\x16'));
        } else if (verb == "drop") {
            unit_->line().PassNext(std::stoi(words.at(1)));
            unit_->line().DropNext(1);
        } else if (verb == "chooses") {
            world_.files.Choose(words.at(1));
        } else if (verb == "disk") {
            world_.disk.files[words.at(1)] = words.at(2);
        } else if (verb == "spoil") {
            std::string& file = world_.disk.files.at(words.at(1));
            file.replace(file.find(words.at(2)), words[2].size(), words.at(3));
        } else if (verb == "disk-fault") {
            world_.disk.faults[words.at(1)] = words.at(2);
        } else if (verb == "say-no") {
            world_.boxes.Answer(BoxButton::kNo);
        } else if (verb == "draw") {
            for (const char c : HexPairs(words.at(1))) {
                world_.random.Queue((static_cast<unsigned char>(c) + 0.5) / 255);
            }
        } else if (verb == "connected") {
            ConnectOn(std::stoi(words.at(1)));
        } else if (verb == "connects-are") {
            world_.tcpsend.set_connect_answer(words.at(1) == "refused"
                                                  ? FakeSocket::ConnectAnswer::kRefuse
                                                  : FakeSocket::ConnectAnswer::kAccept);
        } else if (verb == "settings-read") {
            Connect();
            Refused(tool_->hand.Click(tool_->main_form.network.cmdReadNetworkSettings));
        } else {
            return false;
        }
        return true;
    }

    // At "0200", or in each block from "0200-0280".
    void Store(int board, const std::string& where, const std::string& bytes) {
        std::size_t end = 0;
        int address = std::stoi(where, &end, 16);
        const int last =
            end < where.size() ? std::stoi(where.substr(end + 1), nullptr, 16) : address;
        for (; address <= last; address += 16) {
            if (memory_) {
                memory_->memory[{board, address}] = bytes;
                continue;
            }
            BoardOf(board).Write(static_cast<std::size_t>(address), bytes);
        }
    }
    unit::BoardMemory& BoardOf(int board) {
        return board == 250 ? unit_->unit().Relay() : unit_->unit().Display();
    }

    void Connect() {
        Refused(tool_->hand.Click(tool_->main_form.cmdConnect));
        world_.RunFor(milliseconds{250});
    }
    // Connected as administrator with this tab on the screen.
    void ConnectOn(int tab) {
        MainForm& form = tool_->main_form;
        Connect();
        tool_->session.AdminLoggedIn = true;
        SetTabsEnabled(form, true);
        form.SSTab1.SetTabVisible(tab, true);
        form.SSTab1.SetTab(tab);
    }

    void Act(const std::vector<std::string>& words) {
        const std::string& verb = words[0];
        if (verb == "wait") return world_.RunFor(milliseconds{std::stoi(words.at(1))});
        if (verb == "after") {
            const std::vector<std::string> later(words.begin() + 2, words.end());
            world_.time.After(milliseconds{std::stoi(words.at(1))}, [this, later] {
                log_.push_back("now " + later[0] + (later.size() > 1 ? " " + later[1] : ""));
                if (!Prepare(later)) Act(later);
            });
            return;
        }
        if (verb == "leave") return tool_->hand.Leave();
        if (verb == "page" || verb == "no-page") {
            const milliseconds delay{std::stoi(words.at(2))};
            return verb == "page" ? world_.http.Complete(words[1], delay)
                                  : world_.http.Fail(404, words[1], delay);
        }
        if (verb == "set" && words.size() == 3 && SetVariable(words[1], words[2])) return;
        if (verb == "look") return Tell();
        if (verb == "key") return tool_->hand.Key(std::stoi(words.at(1)));
        if (verb == "peer-closes") return world_.tcpsend.CloseByPeer();
        if (verb == "state") {
            return world_.tcpsend.ForceState(static_cast<SocketState>(std::stoi(words.at(1))));
        }
        if (verb == "cat") return ShowFile(words.at(1), 1000);
        if (verb == "head") return ShowFile(words.at(1), std::stoi(words.at(2)));
        if (verb == "image") {
            auto& image = tool_->macro_editor.state().image;
            const auto at = static_cast<std::size_t>(2 * std::stoi(words.at(1), nullptr, 16));
            for (std::size_t i = 0; i < HexPairs(words.at(2)).size(); ++i) {
                image.Set(at + i, static_cast<std::uint8_t>(HexPairs(words[2])[i]));
            }
            return;
        }
        if (verb == "close-form") return Refused(tool_->hand.Close(tool_->script_edit_form));
        if (verb == "show") return Show(words.at(1), words.size() > 2 ? words[2] : "");
        if (verb == "memory") {
            const auto address = static_cast<std::size_t>(std::stoi(words.at(2), nullptr, 16));
            log_.push_back(
                HexText(BoardOf(std::stoi(words.at(1)))
                            .Read(address, static_cast<std::size_t>(std::stoi(words.at(3))))));
            return;
        }
        Control& control = Find(words.at(1));
        if (verb == "set") {
            const std::string property = words.size() > 3 ? words[2] : "";
            if (auto why = control.Assign(property, ValueOf(words.back(), Get(control, property))))
                Fault(*why);
        } else if (verb == "call") {
            control.on_click();
        } else if (verb == "click") {
            Refused(tool_->hand.Click(control));
        } else if (verb == "type") {
            Refused(tool_->hand.Type(dynamic_cast<TextBox&>(control), words.at(2)));
        } else if (verb == "press") {
            Refused(tool_->hand.Press(dynamic_cast<TextBox&>(control), std::stoi(words.at(2))));
        } else if (verb == "choose") {
            Refused(tool_->hand.Choose(control, std::stoi(words.at(2))));
        } else if (verb == "go") {
            Refused(tool_->hand.GoTo(control));
        } else {
            Fault("no such word: " + verb);
        }
    }

    void ShowFile(const std::string& path, int most) {
        std::istringstream lines(world_.disk.files.at(path));
        for (std::string line; most-- > 0 && std::getline(lines, line);)
            log_.push_back(Quoted(line));
    }
    void Show(const std::string& name, const std::string& property) {
        for (const Entry& entry : Look()) {
            const bool same = entry.index < 0
                                  ? entry.base == name
                                  : entry.base + "(" + std::to_string(entry.index) + ")" == name;
            if (same && entry.property == property) log_.push_back(entry.value);
        }
    }

    // The editor is modal: what is done in it runs as an event of its own, `opening` milliseconds
    // after it was asked for.
    void Edit(int opening, bool quiet) {
        bool returned = false;
        world_.time.After(milliseconds{1}, [&] {
            tool_->main_form.triggers.cmdEditMacro.on_click();
            returned = true;
        });
        world_.time.After(milliseconds{opening}, [this, quiet] {
            Tell(quiet);
            PlayLines();
            if (tool_->script_edit_form.Visible())
                Refused(tool_->hand.Close(tool_->script_edit_form));
        });
        world_.loop.RunUntil([&] { return returned; }, std::chrono::hours{2});
        Tell();
    }

    static void Refused(const Refusal& refusal) {
        if (refusal) Fault(*refusal);
    }

    Control& Find(const std::string& name) {
        for (Form* form : tool_->screen.forms()) {
            if (Control* control = form->Find(name)) return *control;
        }
        Fault("no control " + name);
    }
    static Value Get(const Control& control, const std::string& name) {
        const PropertyList list = control.Properties();
        if (name.empty()) return list.front().second;
        for (const auto& [property, value] : list) {
            if (property == name) return value;
        }
        Fault("no property " + name);
    }
    bool SetVariable(const std::string& name, const std::string& word) {
        for (const SessionVariable& variable : SessionVariables(*tool_)) {
            if (variable.name != name) continue;
            if (auto why = variable.set(ValueOf(word, variable.get()))) Fault(*why);
            return true;
        }
        return false;
    }

    void ControlChanged(Control& control, Property property) override {
        TakeOutside();
        const MainForm& form = tool_->main_form;
        const Label& status = tool_->script_edit_form.lblTopStatus;
        if (property == Property::kCaption &&
            (&control == &form.lblMemoryBlock || &control == &status)) {
            log_.push_back("says " + Quoted(dynamic_cast<Label&>(control).Caption()));
        }
        if (property == Property::kPointer) {
            const bool busy = control.form().Pointer() == Form::kHourglass;
            log_.push_back(busy ? "hourglass" : "arrow");
        }
    }

    void OperationEnded(const OperationRecord& operation) override {
        using End = OperationRecord::End;
        TakeOutside();
        log_.push_back("operation " + Quoted(operation.name) +
                       (operation.Complete()                              ? " complete"
                        : operation.end == End::kOvertaken                ? " overtaken"
                        : operation.end == OperationRecord::End::kStopped ? " stopped"
                                                                          : " runs"));
    }

    // What went out, boxes and beeps since the last look, in the log.
    void TakeOutside() {
        const auto& frames = world_.tcpsend.frames();
        for (; frames_ < frames.size(); ++frames_) {
            const auto& frame = frames[frames_];
            log_.push_back((frame.connection > 1 ? std::to_string(frame.connection) : "") + "> " +
                           HexText(TextOfFrame(frame.bytes)));
        }
        const auto& asked = world_.files.asked();
        for (; asked_ < asked.size(); ++asked_) {
            log_.push_back(std::string(asked[asked_].save ? "asks to save \"" : "asks to load \"") +
                           asked[asked_].title + "|" + asked[asked_].filter + "|" +
                           asked[asked_].default_extension + "\"");
        }
        const auto& fetched = world_.http.requests();
        for (; fetches_ < fetched.size(); ++fetches_) {
            log_.push_back("fetches " + fetched[fetches_].url +
                           (fetched[fetches_].bypass_cache ? " past all caches" : ""));
        }
    }

    std::vector<Entry> Look() {
        std::vector<Entry> all;
        for (Form* form : tool_->screen.forms()) {
            const bool main = form == &tool_->main_form;
            if (!main && form != &tool_->script_edit_form) continue;
            for (const Control* control : form->controls()) {
                const bool array = control->name() != control->base_name();
                // The line's own labels say what the frames say.
                if (control->base_name().starts_with("Label")) continue;
                // The addresses beside the listing follow ListTop.
                if (control->base_name() == "lblMem") continue;
                for (const auto& [property, value] : control->Properties()) {
                    if (property == "kind" || property == "usable") continue;
                    // These say it as it happens.
                    if (control == &tool_->main_form.lblMemoryBlock) continue;
                    if (control == &tool_->script_edit_form.lblTopStatus) continue;
                    if (const auto* tabs = std::get_if<std::vector<TabState>>(&value)) {
                        LookAtTabs(*tabs, all);
                    } else {
                        all.push_back({property, control->base_name(),
                                       array ? control->index() : -1, ValueText(value)});
                    }
                }
            }
            all.push_back({"focus", form->name(), -1, FocusOf(*form)});
            all.push_back({"height", form->name(), -1, std::to_string(form->Height())});
            all.push_back({"visible", form->name(), -1, form->Visible() ? "true" : "false"});
        }
        for (const SessionVariable& variable : SessionVariables(*tool_)) {
            const bool noise = variable.name == "ReplyBuffer" || variable.name == "FrameBuffer" ||
                               variable.name == "CommandDone" || variable.name == "MacroMemory";
            if (!noise) all.push_back({"", variable.name, -1, ValueText(variable.get())});
        }
        LookAtImage(all);
        all.push_back({"", "beeps", -1, std::to_string(world_.sound.beeps())});
        return all;
    }
    static std::string FocusOf(const Form& form) {
        const Control* focused = form.Focused();
        if (!focused) return "none";
        const auto* box = dynamic_cast<const TextBox*>(focused);
        return focused->name() +
               (box ? " (" + std::to_string(box->SelLength()) + " selected)" : "");
    }
    static void LookAtTabs(const std::vector<TabState>& tabs, std::vector<Entry>& all) {
        for (std::size_t i = 0; i < tabs.size(); ++i) {
            all.push_back(
                {"enabled", "tab", static_cast<int>(i), tabs[i].enabled ? "true" : "false"});
            all.push_back(
                {"visible", "tab", static_cast<int>(i), tabs[i].visible ? "true" : "false"});
        }
    }
    void LookAtImage(std::vector<Entry>& all) {
        const MacroMemory& image = tool_->macro_editor.state().image;
        for (int at = 0; at < 256; ++at) {
            const auto first = static_cast<std::size_t>(2 * at);
            all.push_back(
                {"", "image", at, HexByte(image.Get(first)) + " " + HexByte(image.Get(first + 1))});
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
        const auto& boxes = world_.boxes.shown();
        for (; boxes_ < boxes.size(); ++boxes_) {
            log_.push_back("box " + Quoted(boxes[boxes_].title + "|" + boxes[boxes_].text));
        }
        TellLog();
        std::vector<Entry> now = Look();
        std::vector<std::string> order;
        std::map<std::string, std::vector<std::pair<std::string, int>>> groups;
        for (std::size_t i = 0; i < now.size(); ++i) {
            if (now[i].value == seen_[i].value) continue;
            const std::string group =
                now[i].property + (now[i].property.empty() ? "" : " ") + now[i].value;
            if (groups[group].empty()) order.push_back(group);
            groups[group].emplace_back(now[i].base, now[i].index);
        }
        for (const std::string& group : order) {
            out_ += "    " + group + ": " + NameList(groups[group]) + "\n";
        }
        seen_ = std::move(now);
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
    std::vector<Entry> seen_;
    std::size_t frames_ = 0;
    std::size_t boxes_ = 0;
    std::size_t fetches_ = 0;
    std::size_t asked_ = 0;
};

}  // namespace

std::string PlayOnTool(const std::vector<std::string>& lines) { return Player(lines).Play(); }

}  // namespace kestrane
