#pragma once

// A call of kestrane-cli in the process, against the demo unit on virtual time.

#include <gtest/gtest.h>

#include <CLI/CLI.hpp>
#include <algorithm>

#include "cli/calls.h"
#include "configuration/settings.h"
#include "configuration/tabs.h"
#include "console/console_test_support.h"
#include "text/text.h"

namespace kestrane {

using Words = std::vector<std::string>;

class CallTest : public testing::Test, protected ScriptedTool {
  protected:
    CallTest() { world.loop.set_event_limit(100'000'000); }

    // The exit status; -1 if the command line itself is wrong.
    int Run(std::unique_ptr<Call> call, Words words, Words options = {}) {
        CLI::App app;
        CallOptions call_options;
        call_options.AddTo(app);
        call->AddTo(app);
        RefuseEmptyValues(app);
        words.insert(words.end(), options.begin(), options.end());
        std::reverse(words.begin(), words.end());  // as CLI11 takes them
        try {
            app.parse(words);
        } catch (const CLI::ParseError&) {
            return -1;
        }
        EXPECT_EQ(call_options.Check(), "");
        call_options.Apply(tool);
        for (const std::string& problem : {call->WhyNotOneUnit(), call->Check(tool)}) {
            if (problem.empty()) continue;
            complaints.push_back(problem);
            return kExitUsage;
        }
        CallContext context{tool,
                            scripted,
                            call_options,
                            [this](const std::string& line) { printed.push_back(line); },
                            [this](const std::string& line) { complaints.push_back(line); },
                            {}};
        return call->Run(context);
    }
    int Read(Words words) { return Run(MakeReadCall(), std::move(words)); }
    int Set(Words words) { return Run(MakeSetCall(), std::move(words)); }
    Json ReadJson(Words words) {
        words.push_back("--json");
        EXPECT_EQ(Read(words), kExitDone);
        return printed.empty() ? Json() : Json::parse(printed.back());
    }
    // The name of a configuration file that holds these settings.
    std::string File(const std::string& name, const std::string& settings) {
        world.disk.files[name] =
            R"({"format": "kestrane-configuration", "version": 1, "settings": )" + settings + "}";
        return name;
    }
    // How many commands that change a unit have gone out.
    int WritesSent() const {
        int writes = 0;
        for (const Exchange& each : tool.link.journal().exchanges()) writes += each.IsWrite();
        return writes;
    }
    std::string Complaint() const { return complaints.empty() ? "" : complaints.back(); }

    Words printed;
    Words complaints;
    UnitPeer peer{world.tcpsend, world.time};
};

}  // namespace kestrane
