#include "editor_test_support.h"
#include "link/frame.h"
#include "macro/status_picture.h"

namespace kestrane {
namespace {

using testing::ElementsAre;

struct PictureRow {
    const char* unit_type;
    int outlet_on;
    int flags_a;
    int flags_b;
    int position;
    Lamp lamp;
};

// clang-format off
constexpr PictureRow kPictures[] = {
    // An outlet that is off: A green, else B grey, else red.
    {"", 0x0000, 0x0001, 0x0000, 0, kLampGreen}, {"", 0x0000, 0x0001, 0x0001, 0, kLampGreen},
    {"", 0x0000, 0x0000, 0x0001, 0, kLampGrey},  {"", 0x0000, 0x0000, 0x0000, 0, kLampRed},
    // One that is on: A green, else red.
    {"", 0x2000, 0x2000, 0x0000, 13, kLampGreen}, {"", 0x2000, 0x0000, 0x2000, 13, kLampRed},
    {"CMS", 0x0100, 0x0100, 0x0000, 8, kLampGreen}, {"636", 0x0000, 0x0000, 0x0100, 8, kLampGrey},
    // The inlets.
    {"", 0xFFFF, 0, 0x4000, 14, kLampGreen}, {"", 0, 0, 0xBFFF, 14, kLampGrey},
    {"", 0xFFFF, 0xFFFF, 0xFFFF, 15, kLampGrey},
    {"636", 0, 0, 0x4000, 14, kLampGreen}, {"636", 0, 0, 0x4000, 15, kLampGrey},
    {"636", 0, 0, 0x8000, 14, kLampGrey},  {"636", 0, 0, 0x8000, 15, kLampGreen},
    {"CMS", 0x0000, 0, 0xC000, 14, kLampGreen}, {"CMS", 0x0000, 0, 0xC000, 15, kLampRed},
    {"CMS", 0x8000, 0, 0xC000, 14, kLampRed},   {"CMS", 0x8000, 0, 0xC000, 15, kLampGreen},
    {"CMS", 0x8000, 0, 0x0000, 14, kLampGrey},  {"CMS", 0x8000, 0, 0x0000, 15, kLampGrey},
};
// clang-format on

std::string Record(int on, int a, int b, int pointer) {
    return Bytes({on >> 8, on, 0, a >> 8, a, b >> 8, b, 0, pointer, 0, 0, 0, 0});
}

TEST(StatusPicture, ShowsALightForEachPosition) {
    for (const PictureRow& row : kPictures) {
        const auto status = ReadStatus(Record(row.outlet_on, row.flags_a, row.flags_b, 0));
        ASSERT_TRUE(status);
        EXPECT_EQ(LightsOf(*status, row.unit_type)[static_cast<std::size_t>(row.position)],
                  row.lamp)
            << row.unit_type << " " << row.position;
    }
}

std::string StatusReply(const std::string& record) {
    return Framed(Bytes({250, kReadLiveStatus}) + record);
}

TEST(StatusPicture, TakesTheRecordBetweenEchoAndChecksum) {
    for (int value = 0; value < 256; ++value) {
        const std::string record(13, static_cast<char>(value));
        EXPECT_EQ(RecordInReply(StatusReply(record)), record);
    }
    const std::string record = Record(0x1010, 0x1003, 0x0210, 0x10);
    EXPECT_EQ(RecordInReply(StatusReply(record)), record);
    // Replies that came joined, the last of them perhaps in part.
    const std::string joined = StatusReply(std::string(13, '\x03')) + StatusReply(record);
    EXPECT_EQ(RecordInReply(joined), record);
    EXPECT_EQ(RecordInReply(StatusReply(record) + StatusReply(record).substr(0, 9)), record);
    for (const char* other : {"", "\x10", "\x10\x02", "\x10\x02\xFA\x31\x55\x10", "garbage!"}) {
        EXPECT_FALSE(ReadStatus(RecordInReply(other)));
    }
    std::string wrong_mark = StatusReply(record);
    wrong_mark[1] = 0x03;
    EXPECT_FALSE(ReadStatus(RecordInReply(wrong_mark)));
}

// On a peer that answers every status poll with `record`, or not at all.
class Status : public testing::Test, public OpenEditor<ToolOnScript> {
  protected:
    Status() {
        peer.set_answer([this](std::string_view frame) {
            if (ByteAt(frame, 4) == kReadLiveStatus) ++polls;
            if (silent) return std::string();
            if (ByteAt(frame, 4) == kReadLiveStatus) return StatusReply(record);
            // Memory reads all give 0x11.
            return Framed(TextOfFrame(frame) + std::string(16, '\x11'));
        });
        form.triggers.txtMTName(0).SetText("a");
        form.names.txtMainUpper.SetText("b");
    }
    void InEditor(std::function<void()> body) {
        Connect();
        OpenEditor::InEditor(std::move(body), 3500);
    }
    int Light(int position) const { return editor.pbLED(position).Picture(); }

    std::string record = Record(0, 0, 0, 0x33);
    bool silent = false;
    int polls = 0;
};

// A tick that is handled in one go with the reader's, before the wait has seen the answer.
TEST_F(Status, IsTakenByTheNextTickIfThatComesFirst) {
    InEditor([&] {
        world.loop.AfterEvents([&, waiting = false]() mutable {
            const bool waits = form.Label3.Caption() == "*";
            const bool came = waiting && !waits;
            waiting = waits;
            if (!came || !editor.Visible()) return;
            if (editor.timTrace.Enabled()) editor.timTrace.on_timer();
            if (editor.timUpdate.Enabled()) editor.timUpdate.on_timer();
            waiting = form.Label3.Caption() == "*";
        });
        record = Record(0x0001, 0x0001, 0, 0x33);
        Wait(1000);
        EXPECT_EQ(Light(0), kLampGreen);
        SetChecked(editor.chkTrace, true);
        for (const int pointer : {0x33, 0x44, 0x55}) {
            record = Record(0, 0, 0, pointer);
            Wait(500);
            EXPECT_EQ(editor.scrListScroll.ScrollValue(), pointer);
        }
        EXPECT_LT(world.loop.max_pump_depth(), 10);
    });
}

TEST_F(Status, OnRequestBringsTheListToItsStart) {
    InEditor([&] {
        editor.timUpdate.SetEnabled(false);
        MoveTo(0x60);
        record = Record(0x0004, 0x0004, 0, 0x55);
        Click(editor.cmdGetStatus);
        EXPECT_EQ(editor.scrListScroll.ScrollValue(), 16);
        EXPECT_EQ(Light(2), kLampGreen);
        // At any moment of the polls, whose replies join with its own.
        editor.timUpdate.SetEnabled(true);
        for (int i = 0; i < 30; ++i) {
            MoveTo(0x60);
            Wait(37);
            Click(editor.cmdGetStatus);
            EXPECT_EQ(editor.scrListScroll.ScrollValue(), 16);
        }
        MoveTo(0x60);
        record = "short";
        Click(editor.cmdGetStatus);
        EXPECT_EQ(editor.scrListScroll.ScrollValue(), 0x60);
    });
}

// Polls, presses and go-tos of twenty minutes without an answer wait side by side, not upon each
// other, and the first answer brings the picture back.
TEST_F(Status, OutlastsTwentyMinutesOfSilence) {
    InEditor([&] {
        session.CheckPassword();
        for (Button* button : {&editor.cmdGoTo, &editor.cmdUpload}) button->SetEnabled(true);
        silent = true;
        world.loop.set_event_limit(5'000'000);
        for (int second = 1; second < 1200; ++second) {
            After(1000 * second, [&, second] {
                if (second % 5 == 0) SetChecked(editor.chkTrace, !editor.chkTrace.Checked());
                if (second % 3 == 0) Click(editor.cmdGetStatus);
                if (second % 7 == 0) Click(editor.cmdGoTo);
            });
        }
        // Something waits on top of this test's own wait all the time.
        After(1'199'500, [&] {
            EXPECT_LT(world.loop.max_pump_depth(), 12);
            EXPECT_TRUE(editor.timUpdate.Enabled() || editor.timTrace.Enabled());
            EXPECT_TRUE(editor.cmdOn(0).Enabled());
            silent = false;
            record = Record(0x0001, 0x0001, 0, 0x30);
        });
        Wait(1'200'500);
        EXPECT_GT(polls, 10'000);
        EXPECT_EQ(Light(0), kLampGreen);
        EXPECT_LT(world.loop.pump_depth(), 5);
    });
}

// The editor opened inside a wait of the main form, which can't end before the editor closes.
TEST(NestedStatus, FollowsTheUnitWhileACommandWaitsBelow) {
    EditorOnUnit world;
    ScriptEditForm& editor = world.editor;
    world.ReadSettings();
    world.form.SSTab1.SetTab(4);
    int before = 0;
    int after = 0;
    world.After(50, [&] { world.Click(world.form.triggers.cmdEditMacro); });
    world.After(5'000, [&] {
        before = editor.pbLED(14).Picture();
        world.peer.unit().SetSupply(unit::Supply::kMain, false, world.world.Now());
    });
    world.After(7'000, [&] {
        after = editor.pbLED(14).Picture();
        world.tool.hand.Close(editor);
    });
    // The reply to this one comes while the editor stands on its wait.
    world.peer.line().DropNext(1);
    const Link::Operation operation(world.tool.link, "Test");
    world.tool.link.Command(ReadCommand(world.session.RelayAddress, 0));
    EXPECT_NE(before, after);
}

}  // namespace
}  // namespace kestrane
