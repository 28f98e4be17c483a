// Handles, the handle index, value text and records.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <random>

#include "db/database.h"
#include "db/handle.h"
#include "db/handle_index.h"
#include "db/value_text.h"
#include "dxf/reader.h"
#include "sample_drawing.h"

namespace korva {
namespace {

using db::Handle;

TEST(Handles, ParseAcceptsHexOfEitherCaseWithBlanks) {
  EXPECT_EQ(db::parseHandle("1F"), Handle{0x1F});
  EXPECT_EQ(db::parseHandle("1f"), Handle{0x1F});
  EXPECT_EQ(db::parseHandle("  \tABC "), Handle{0xABC});
  EXPECT_EQ(db::parseHandle("0"), Handle{0});
  EXPECT_EQ(db::parseHandle("FFFFFFFFFFFFFFFF"), std::numeric_limits<Handle>::max());
}

TEST(Handles, ParseRejectsWhatIsNotAHandle) {
  for (std::string_view text : {"", "   ", "G1", "1 2", "-1", "0x1F", "1.0", "10000000000000000"}) {
    EXPECT_FALSE(db::parseHandle(text)) << "'" << text << "'";
  }
}

TEST(Handles, FormatIsUpperCaseWithoutLeadingZeros) {
  EXPECT_EQ(db::formatHandle(0), "0");
  EXPECT_EQ(db::formatHandle(0xABCDEF), "ABCDEF");
  EXPECT_EQ(db::formatHandle(std::numeric_limits<Handle>::max()), "FFFFFFFFFFFFFFFF");
  std::mt19937_64 random(7);
  for (int i = 0; i < 1000; ++i) {
    Handle handle = random() >> (random() % 64);
    EXPECT_EQ(db::parseHandle(db::formatHandle(handle)), handle);
  }
}

TEST(HandleIndex, InsertFindAndRefuseTakenHandles) {
  db::HandleIndex index;
  auto* a = reinterpret_cast<db::Record*>(0x1000);
  auto* b = reinterpret_cast<db::Record*>(0x2000);
  EXPECT_EQ(index.find(1), nullptr);
  EXPECT_TRUE(index.insert(1, a));
  EXPECT_FALSE(index.insert(1, b));
  EXPECT_FALSE(index.insert(db::kNoHandle, b));
  EXPECT_EQ(index.find(1), a);
  EXPECT_EQ(index.find(db::kNoHandle), nullptr);
  EXPECT_EQ(index.size(), 1u);
  index.erase(99);  // not there: nothing happens
  EXPECT_EQ(index.size(), 1u);
}

// Many handles in a small table collide and wrap around its end; erasing must leave
// every other handle findable, whatever the order.
TEST(HandleIndex, EraseKeepsCollidingHandlesFindable) {
  for (unsigned seed : {1u, 2u, 3u}) {
    db::HandleIndex index;
    std::map<Handle, db::Record*> expected;
    std::mt19937_64 random(seed);
    auto recordFor = [](Handle handle) { return reinterpret_cast<db::Record*>(handle * 16); };
    for (int round = 0; round < 4000; ++round) {
      // Consecutive runs, as in drawings, mixed with scattered handles.
      Handle handle = random() % 3 ? 1 + random() % 700 : 1 + random();
      if (random() % 3 == 0) {
        index.erase(handle);
        expected.erase(handle);
      } else {
        EXPECT_EQ(index.insert(handle, recordFor(handle)), !expected.contains(handle));
        expected.emplace(handle, recordFor(handle));
      }
      if (round % 97 == 0) {
        for (Handle probe = 1; probe <= 700; ++probe) {
          auto found = expected.find(probe);
          ASSERT_EQ(index.find(probe), found == expected.end() ? nullptr : found->second)
              << "seed " << seed << " round " << round << " handle " << probe;
        }
      }
    }
    EXPECT_EQ(index.size(), expected.size());
    for (auto [handle, record] : expected) EXPECT_EQ(index.find(handle), record);
    for (auto [handle, record] : expected) index.erase(handle);
    EXPECT_EQ(index.size(), 0u);
    for (auto [handle, record] : expected) EXPECT_EQ(index.find(handle), nullptr);
  }
}

TEST(ValueText, FormatRealReadsBackExactlyAndKeepsAPoint) {
  EXPECT_EQ(db::formatReal(1), "1.0");
  EXPECT_EQ(db::formatReal(-0.0), "0.0");
  EXPECT_EQ(db::formatReal(0.1), "0.1");
  EXPECT_EQ(db::formatReal(-2.5), "-2.5");
  EXPECT_EQ(db::formatReal(1e20), "1e+20");
  std::mt19937_64 random(11);
  std::uniform_real_distribution<double> mantissa(-1, 1);
  for (int i = 0; i < 5000; ++i) {
    double value = std::ldexp(mantissa(random), static_cast<int>(random() % 2000) - 1000);
    std::string text = db::formatReal(value);
    ASSERT_EQ(db::parseReal(text), value) << text;
    EXPECT_NE(text.find_first_of(".e"), std::string::npos) << text;
  }
  for (double value : {std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
                       std::numeric_limits<double>::denorm_min(), 123456789012345678.0}) {
    EXPECT_EQ(db::parseReal(db::formatReal(value)), value);
  }
}

TEST(ValueText, ParseAcceptsFileSpellingsAndRejectsTheRest) {
  EXPECT_EQ(db::parseReal(" +1.5 "), 1.5);
  EXPECT_EQ(db::parseReal("1E3"), 1000.0);
  EXPECT_EQ(db::parseReal("-.5"), -0.5);
  for (std::string_view bad : {"", "1.5x", "1,5", "nan", "inf", "1e999"}) {
    EXPECT_FALSE(db::parseReal(bad)) << bad;
  }
  EXPECT_EQ(db::parseInteger("  -42"), -42);
  EXPECT_EQ(db::parseInteger("+7"), 7);
  EXPECT_FALSE(db::parseInteger("4.0"));
  EXPECT_FALSE(db::parseInteger("99999999999999999999"));
}

constexpr std::string_view kCircleText =
    "  0\nCIRCLE\n  5\n2A\n102\n{ACAD_REACTORS\n330\n77\n102\n}\n330\n1F\n 40\n5.0\n"
    " 40\n6.0\n";

TEST(Record, GroupsFromSourceTextSkipTheTypeLine) {
  db::Record record("CIRCLE", kCircleText, 0);
  std::vector<db::Group> groups = record.groupList();
  ASSERT_EQ(groups.size(), 7u);
  EXPECT_EQ(groups[0].code, 5);
  EXPECT_EQ(groups[0].value, "2A");
  EXPECT_EQ(groups[2].code, 330);
  EXPECT_EQ(groups[2].value, "77");
  EXPECT_EQ(groups[6].code, 40);
  EXPECT_EQ(groups[6].value, "6.0");
  EXPECT_EQ(record.groupCount(), 7u);
  EXPECT_EQ(record.find(40), "5.0");  // the first of several
  EXPECT_FALSE(record.find(10));
  EXPECT_EQ(record.sourceText(), kCircleText);
  EXPECT_EQ(db::ownerOf(record), Handle{0x1F});  // not the reactor inside the 102 group
}

TEST(Record, GroupsFromSourceTextWithCrlfAndNoTypeLine) {
  db::Record variables("HEADER", "  9\r\n$ACADVER\r\n  1\r\nAC1015\r\n", db::Record::kNoTypeLine);
  std::vector<db::Group> groups = variables.groupList();
  ASSERT_EQ(groups.size(), 2u);
  EXPECT_EQ(groups[0].value, "$ACADVER");
  EXPECT_EQ(groups[1].code, 1);
  EXPECT_EQ(groups[1].value, "AC1015");
}

TEST(Record, OwnedGroupsGiveHandleOwnerAndOrder) {
  db::Record record(
      "LINE",
      {{5, "3B"}, {102, "{ACAD_XDICTIONARY"}, {360, "50"}, {102, "}"}, {330, "1F"}, {10, "1.0"}});
  EXPECT_TRUE(record.isModified());
  EXPECT_EQ(record.sourceText(), "");
  EXPECT_EQ(record.handle(), Handle{0x3B});
  EXPECT_EQ(record.owner(), Handle{0x1F});
  EXPECT_EQ(record.groupCount(), 6u);
  EXPECT_EQ(record.find(360), "50");
  int count = 0;
  for (const db::Group& group : record.groups()) {
    if (group.code == 10) {
      EXPECT_EQ(group.value, "1.0");
    }
    ++count;
  }
  EXPECT_EQ(count, 6);
}

TEST(Record, OwnerIsTheFirstLinkOutsideApplicationGroups) {
  db::Record reactorsFirst(
      "ARC", {{5, "A"}, {102, "{ACAD_REACTORS"}, {330, "B"}, {330, "C"}, {102, "}"}, {330, "D"}});
  EXPECT_EQ(reactorsFirst.owner(), Handle{0xD});
  EXPECT_EQ(db::ownerOf(reactorsFirst), Handle{0xD});
  db::Record noOwner("ARC", {{5, "A"}, {102, "{ACAD_REACTORS"}, {330, "B"}, {102, "}"}});
  EXPECT_EQ(noOwner.owner(), db::kNoHandle);
}

TEST(Record, DimensionStyleHandleIsGroup105) {
  db::Record style("DIMSTYLE", {{105, "2C"}, {330, "A"}, {2, "Standard"}, {5, "ARCHTICK"}});
  EXPECT_EQ(style.handle(), Handle{0x2C});
  db::Record line("LINE", {{105, "2C"}, {5, "2D"}});
  EXPECT_EQ(line.handle(), Handle{0x2D});
}

class RecordInDrawing : public ::testing::Test {
 protected:
  void SetUp() override {
    dxf::ReadResult result = dxf::readBuffer(std::string(test::kSampleDrawing));
    ASSERT_TRUE(result.ok()) << result.error;
    database = std::move(result.database);
    circle = database->lookup(0x31);
    ASSERT_NE(circle, nullptr);
  }
  std::unique_ptr<db::Database> database;
  db::Record* circle = nullptr;
};

TEST_F(RecordInDrawing, ReadRecordsKnowTheirLinks) {
  EXPECT_EQ(circle->type(), "CIRCLE");
  EXPECT_EQ(circle->owner(), Handle{0x1F});
  EXPECT_FALSE(circle->isModified());
  EXPECT_TRUE(circle->sourceText().starts_with("  0\nCIRCLE\n  5\n31\n"));
}

TEST_F(RecordInDrawing, AssignKeepsTheHandle) {
  std::vector<db::OwnedGroup> groups = circle->ownedGroups();
  ASSERT_EQ(groups[0].code, 5);
  groups[0].value = "999";
  groups.push_back({40, "7.0"});
  circle->assign(groups);
  EXPECT_EQ(circle->handle(), Handle{0x31});
  EXPECT_EQ(circle->find(5), "31");
  EXPECT_EQ(circle->groupCount(), groups.size());
  EXPECT_EQ(circle->owner(), Handle{0x1F});
  EXPECT_TRUE(circle->isModified());
  EXPECT_EQ(database->lookup(0x31), circle);
  EXPECT_EQ(database->lookup(0x999), nullptr);
}

TEST_F(RecordInDrawing, SetValueChangesTheFirstGroupAndTheOwner) {
  EXPECT_TRUE(circle->setValue(40, "8.0"));
  EXPECT_EQ(circle->find(40), "8.0");
  EXPECT_TRUE(circle->isModified());
  EXPECT_EQ(circle->sourceText(), "");
  // The first 330 is the reactor; the owner is the one after the 102 group.
  EXPECT_TRUE(circle->setValue(330, "99"));
  EXPECT_EQ(circle->owner(), Handle{0x1F});
}

TEST_F(RecordInDrawing, SetValueOfAMissingCodeLeavesTheRecordUntouched) {
  EXPECT_FALSE(circle->setValue(62, "1"));
  EXPECT_FALSE(circle->find(62));
  EXPECT_FALSE(circle->isModified());
  EXPECT_FALSE(circle->sourceText().empty());
}

}  // namespace
}  // namespace korva
