#pragma once

// A console on virtual time, with the demo unit or a peer that the test writes at the far end.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "console/console.h"
#include "support/scripted_peer.h"
#include "support/unit_peer.h"
#include "support/virtual_platform.h"

namespace kestrane {

// A tool whose boxes, dialogs and beeps go to a ScriptedOperator.
struct ScriptedTool {
    VirtualPlatform world;
    ScriptedOperator scripted;
    Tool tool{{world.loop, world.timers, world.tcpsend, world.http, scripted, scripted, world.clock,
               world.random, scripted, world.disk}};

    ScriptedTool() { tool.Start(); }
};

class ConsoleTest : public testing::Test, protected ScriptedTool {
  protected:
    static constexpr std::chrono::milliseconds kPatience{100'000};

    // The answers so far: the lines that are no events.
    std::vector<std::string> Answers() const {
        std::vector<std::string> answers;
        for (const std::string& line : lines) {
            if (line.rfind("{\"ok\"", 0) == 0) answers.push_back(line);
        }
        return answers;
    }
    std::vector<std::string> Events() const {
        std::vector<std::string> events;
        for (const std::string& line : lines) {
            if (line.rfind("{\"event\"", 0) == 0) events.push_back(line);
        }
        return events;
    }
    // Feeds a line and lets time pass until it is answered.
    std::string Ask(const std::string& line) {
        const std::size_t before = Answers().size();
        console.FeedLine(line);
        world.loop.RunUntil([&] { return Answers().size() > before; }, kPatience);
        return Answers().size() > before ? Answers()[before] : "unanswered";
    }
    void Feed(const std::vector<std::string>& many) {
        for (const std::string& line : many) console.FeedLine(line);
    }
    void Wait(int milliseconds) { world.RunFor(std::chrono::milliseconds(milliseconds)); }
    // Lets time pass until the program ends; its status, -1 if it does not.
    int RunToEnd(int milliseconds) {
        try {
            Wait(milliseconds);
        } catch (const ProgramEnded& ended) {
            return ended.status;
        }
        return -1;
    }
    std::string Value(const std::string& name) {
        const std::string answer = Ask("get " + name);
        const Json json = Json::parse(answer, nullptr, false);
        return json.contains("value") ? json["value"].dump() : answer;
    }

    std::vector<std::string> lines;
    std::vector<std::chrono::milliseconds> times;  // when each line was written
    Console console{tool,
                    scripted,
                    {[this](const std::string& line) {
                         lines.push_back(line);
                         times.push_back(world.Now());
                     },
                     {}}};
};

constexpr char kOk[] = "{\"ok\":true}";

inline std::string Error(const std::string& text) {
    return "{\"ok\":false,\"error\":\"" + text + "\"}";
}

}  // namespace kestrane
