// What is secret in a unit or in a file is nowhere in what a call leaves behind: its lines, its
// reports, the files for everyone, the words of its command line.

#include <gtest/gtest.h>

#include "cli/assignments.h"
#include "cli/call_test_support.h"

namespace kestrane {
namespace {

constexpr char kCommunity[] = "hunter-community";
constexpr char kKey[] = "0C0FFEE0C0FFEE0C0FFEE0C0FFEE0C0F";

class SecretsTest : public CallTest {
  protected:
    SecretsTest() {
        File("all", R"({"snmp": {"read_community": ")" + std::string(kCommunity) +
                        R"("}, "ports": {"b": {"key": ")" + kKey + R"("}}, "security": {
                        "view": {"password": "hunter-view"}, "control": {"password":
                        "hunter-control"}, "admin": {"password": "hunter-admin"}}})");
        int number = 0;
        for (const char* password :
             {R"("hunter-view" x)", R"("hunter view")", R"("hunter-view-that-is-long")",
              R"("hunter-view\q")", "\"hunter-view\xE9\"", "\"hunter-view\xC4\x80\"",
              "\"hunter-view\n\"", "\"hunter-view", "hunter-view", R"(["hunter-view"])"}) {
            File("wrong" + std::to_string(number++),
                 R"({"security": {"view": {"password": )" + std::string(password) + "}}}");
        }
        number_of_wrong_ = number;
    }

    // The secrets, as the calls and as the unit know them.
    Words Secrets() {
        Words secrets{"hunter", kKey};
        for (int address = 0x02A0; address <= 0x02D0; address += 16) {
            std::string block;
            for (int i = 0; i < 16; ++i) {
                const auto at = static_cast<std::size_t>(address + i);
                block += static_cast<char>(peer.unit().Display().At(at));
            }
            const bool plain = block.find_first_not_of(block[0]) == block.npos;
            if (!plain) secrets.push_back(HexText(block));
        }
        return secrets;
    }
    void Search(const std::string& where, const std::string& text) {
        for (const std::string& secret : Secrets()) {
            EXPECT_EQ(UpperCase(text).find(UpperCase(secret)), text.npos) << where << ": " << text;
        }
    }
    void RunAndSearch(std::unique_ptr<Call> (*make)(), const Words& words) {
        auto call = make();
        std::string what = call->name();
        for (const std::string& word : words) what += " " + word;
        const auto before = world.disk.files;
        printed.clear();
        complaints.clear();
        Run(std::move(call), words);
        for (const std::string& line : printed) Search(what, line);
        for (const std::string& line : complaints) Search(what, line);
        for (const auto& [name, content] : world.disk.files) {
            if (before.count(name) || world.disk.owner_only.count(name)) continue;
            Search(what + " in " + name, content);
        }
    }

    int number_of_wrong_ = 0;
};

TEST_F(SecretsTest, AreInNothingThatACallLeavesBehind) {
    RunAndSearch(MakeApplyCall, {"all", "--undo", "undo"});
    EXPECT_EQ(world.disk.owner_only, std::set<std::string>{"undo"});
    EXPECT_EQ(Secrets().size(), 6u) << "the unit holds a salt and three passwords";
    for (const Words& words : {Words{"all"}, Words{"all", "--json"}}) {
        RunAndSearch(MakeDiffCall, words);
        RunAndSearch(MakeApplyCall, words);
    }
    RunAndSearch(MakeReadCall, {});
    RunAndSearch(MakeReadCall, {"--json"});
    RunAndSearch(MakeBackupCall, {"backup"});
    RunAndSearch(MakeBackupCall, {});
    const Words others{"security.view.password=hunter2", "security.control.password=hunter3",
                       "security.admin.password=hunter4"};
    RunAndSearch(MakeSetCall, others);
    RunAndSearch(MakeSetCall, {others[0]});
    for (const char* word :
         {"security.view.password=hunter 2", "txtChaskey(0)=hunter", "snmp.read_community= hunter",
          "security.view.pasword=hunter", "txtCommunity=hunter\xC4\x80"}) {
        RunAndSearch(MakeSetCall, {word, "--json"});
        RunAndSearch(MakeApplyCall, {"--set", word});
    }
    for (int i = 0; i < number_of_wrong_; ++i) {
        RunAndSearch(MakeCheckCall, {"wrong" + std::to_string(i)});
        RunAndSearch(MakeApplyCall, {"wrong" + std::to_string(i), "--json"});
        EXPECT_FALSE(complaints.empty()) << i;
    }
}

TEST_F(SecretsTest, AreInNoReportOfAWriteThatFails) {
    for (const int exchange : {5, 20, 26, 40}) {
        peer.line().PassNext(exchange);
        peer.line().CutNext(3);
        RunAndSearch(MakeApplyCall, {"all", "--json"});
        EXPECT_EQ(Json::parse(printed.back())["result"], "failed") << exchange;
    }
}

TEST(HideSecrets, LeavesNoneAmongTheWordsOfTheProcess) {
    std::vector<std::string> texts{"kestrane-cli",
                                   "set",
                                   "security.view.password=hunter",
                                   "--set=ports.a.key=00=11",
                                   "frmMainForm.txtCommunity=hunter",
                                   "network.unit_name=Rack 7",
                                   "--unit",
                                   "a=b"};
    std::vector<char*> words;
    for (std::string& text : texts) words.push_back(text.data());
    HideSecrets(static_cast<int>(words.size()), words.data());
    EXPECT_EQ(texts, (Words{"kestrane-cli", "set", "security.view.password=xxxxxx",
                            "--set=ports.a.key=xxxxx", "frmMainForm.txtCommunity=xxxxxx",
                            "network.unit_name=Rack 7", "--unit", "a=b"}));
}

}  // namespace
}  // namespace kestrane
