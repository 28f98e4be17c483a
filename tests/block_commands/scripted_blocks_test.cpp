// BLOCK, INSERT and PURGE driven by the token sequences the module scripts them with.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <sstream>
#include <string>

#include "api/objects/database_registry.h"
#include "api/utf8.h"
#include "cmd/processor.h"
#include "drawing_fixture.h"
#include "input/console.h"
#include "qx_command.h"
#include "qx_db_block_reference.h"
#include "qx_db_blocks.h"
#include "qx_db_curves.h"
#include "qx_db_database.h"
#include "qx_selection.h"
#include "qx_variables.h"

namespace korva::cmd {
namespace {

namespace fs = std::filesystem;

class ScriptedBlocksTest : public HostCommandTest {
 protected:
  // A value of the entity's list; nan when it has no such group.
  static double real(const EntityName name, int code, int axis = 0) {
    ResultBuffer* list = qxdbEntGet(name);
    double value = std::nan("");
    for (const ResultBuffer* node = list; node; node = node->next) {
      if (node->type != code) continue;
      value = code >= 10 && code < 40 ? node->value.rpoint[axis] : node->value.rreal;
    }
    qxutRelRb(list);
    return value;
  }
  static std::wstring text(const EntityName name, int code) {
    ResultBuffer* list = qxdbEntGet(name);
    std::wstring value;
    for (const ResultBuffer* node = list; node; node = node->next) {
      if (node->type == code && node->value.rstring) value = node->value.rstring;
    }
    qxutRelRb(list);
    return value;
  }
  static bool hasBlock(const wchar_t* name) {
    ResultBuffer* entry = qxdbTblSearch(L"BLOCK", name, 0);
    qxutRelRb(entry);
    return entry != nullptr;
  }
  static bool erased(const EntityName name) {
    QxDbObjectId id;
    if (qxdbGetObjectId(id, name) != Qxad::eOk) return true;
    QxDbObject* object = nullptr;
    if (qxdbOpenQxDbObject(object, id, QxDb::kForRead) != Qxad::eOk) return true;
    object->close();
    return false;
  }
  // Entities of the block, by type.
  static std::vector<std::wstring> blockContents(const wchar_t* name) {
    std::vector<std::wstring> types;
    QxDbBlockTable* table = nullptr;
    s_pServices->workingDatabase()->getSymbolTable(table, QxDb::kForRead);
    QxDbBlockTableRecord* block = nullptr;
    if (table->getAt(name, block, QxDb::kForRead) == Qxad::eOk) {
      QxDbBlockTableRecordIterator* iterator = nullptr;
      block->newIterator(iterator);
      for (; !iterator->done(); iterator->step()) {
        QxDbEntity* entity = nullptr;
        if (iterator->getEntity(entity) != Qxad::eOk) continue;
        types.push_back(korva::api::fromUtf8(entity->isA()->dxfName()));
        entity->close();
      }
      delete iterator;
      block->close();
    }
    table->close();
    return types;
  }
  bool said(const std::string& text) const {
    return transcript_.str().find(text) != std::string::npos;
  }
  static bool hasLayer(const wchar_t* name) {
    ResultBuffer* entry = qxdbTblSearch(L"LAYER", name, 0);
    qxutRelRb(entry);
    return entry != nullptr;
  }
  // X of the block's base point; nan when there is no such block.
  static double baseX(const wchar_t* name) {
    ResultBuffer* entry = qxdbTblSearch(L"BLOCK", name, 0);
    double x = std::nan("");
    for (const ResultBuffer* node = entry; node; node = node->next) {
      if (node->type == 10) x = node->value.rpoint[0];
    }
    qxutRelRb(entry);
    return x;
  }
  // BLOCK of one entity with its base point at the origin.
  static void defineBlock(const wchar_t* name, const EntityName part) {
    ASSERT_EQ(qxedCommand(RTSTR, L"_.BLOCK", RTSTR, name, RTPOINT, kOrigin, RTENAME, part, RTSTR,
                          L"", RTNONE),
              RTNORM);
  }
  // INSERT of the block at the point, scaled alike in X and Y and turned; the reference made.
  static void insert(const wchar_t* name, const double at[3], EntityName reference,
                     double scale = 1.0, double degrees = 0.0) {
    ASSERT_EQ(qxedCommand(RTSTR, L"_.INSERT", RTSTR, name, RTPOINT, at, RTREAL, scale, RTREAL,
                          scale, RTREAL, degrees, RTNONE),
              RTNORM);
    ASSERT_EQ(qxdbEntLast(reference), RTNORM);
  }
  static constexpr double kOrigin[3] = {0, 0, 0};
};

TEST_F(ScriptedBlocksTest, BlockTakesTheSelectionOutOfTheDrawing) {
  EntityName first, second, kept;
  line(0, 0, 10, 0, first);
  line(10, 0, 10, 5, second);
  line(50, 50, 60, 50, kept);
  SelectionSet set;
  ASSERT_EQ(qxedSSAdd(first, nullptr, set), RTNORM);
  ASSERT_EQ(qxedSSAdd(second, set, set), RTNORM);
  const double base[3] = {10, 0, 0};
  ASSERT_EQ(qxedCommand(RTSTR, L"_.BLOCK", RTSTR, L"PART", RTPOINT, base, RTPICKS, set, RTSTR, L"",
                        RTNONE),
            RTNORM);
  qxedSSFree(set);
  EXPECT_EQ(Processor::instance().activeCommand(), nullptr);
  EXPECT_TRUE(erased(first));
  EXPECT_TRUE(erased(second));
  EXPECT_FALSE(erased(kept));
  EXPECT_EQ(blockContents(L"PART"), (std::vector<std::wstring>{L"LINE", L"LINE"}));
  EXPECT_EQ(baseX(L"PART"), 10);
}

TEST_F(ScriptedBlocksTest, RedefiningAsksAndNoKeepsTheOldContents) {
  EntityName first, second;
  line(0, 0, 1, 0, first);
  line(0, 0, 0, 1, second);
  defineBlock(L"B", first);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.BLOCK", RTSTR, L"B", RTSTR, L"", RTNONE), RTNORM);
  EXPECT_TRUE(said("Block \"B\" already exists. Redefine it? [Yes/No] <N>:"));
  EXPECT_FALSE(erased(second));
  ASSERT_EQ(qxedCommand(RTSTR, L"_.BLOCK", RTSTR, L"B", RTSTR, L"_Y", RTPOINT, kOrigin, RTENAME,
                        second, RTSTR, L"", RTNONE),
            RTNORM);
  EXPECT_TRUE(erased(second));
  EXPECT_EQ(blockContents(L"B"), std::vector<std::wstring>{L"LINE"});
}

TEST_F(ScriptedBlocksTest, ABlockCannotTakeAReferenceToItself) {
  EntityName part, innerReference, holder;
  line(0, 0, 1, 0, part);
  ASSERT_NO_FATAL_FAILURE(defineBlock(L"INNER", part));
  // OUTER holds INNER; redefining INNER with a reference to OUTER would loop.
  ASSERT_NO_FATAL_FAILURE(insert(L"INNER", kOrigin, innerReference));
  ASSERT_NO_FATAL_FAILURE(defineBlock(L"OUTER", innerReference));
  ASSERT_NO_FATAL_FAILURE(insert(L"OUTER", kOrigin, holder));
  ASSERT_EQ(qxedCommand(RTSTR, L"_.BLOCK", RTSTR, L"INNER", RTSTR, L"_Y", RTPOINT, kOrigin, RTENAME,
                        holder, RTSTR, L"", RTNONE),
            RTNORM);
  EXPECT_TRUE(said("Block \"INNER\" references itself"));
  EXPECT_FALSE(erased(holder));
  EXPECT_EQ(blockContents(L"INNER"), std::vector<std::wstring>{L"LINE"});
}

// The scaling of a reference with attributes: it goes into a temporary block in its own
// user system, and comes back as a reference of that block scaled in place.
TEST_F(ScriptedBlocksTest, ReferenceScaledThroughATemporaryBlock) {
  EntityName part;
  line(0, 0, 2, 0, part);
  const double at[3] = {20, 10, 0};
  defineBlock(L"TAG", part);
  EntityName reference;
  ASSERT_NO_FATAL_FAILURE(insert(L"TAG", at, reference, 1.5, 90.0));
  SelectionSet set;
  ASSERT_EQ(qxedSSAdd(reference, nullptr, set), RTNORM);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.UCS", RTSTR, L"_OB", RTENAME, reference, RTNONE), RTNORM);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.BLOCK", RTSTR, L"vn-tmp-block", RTPOINT, kOrigin, RTPICKS, set,
                        RTSTR, L"", RTNONE),
            RTNORM);
  qxedSSFree(set);
  ASSERT_TRUE(erased(reference));
  ASSERT_EQ(
      qxedCommand(RTSTR, L"_.INSERT", RTSTR, L"vn-tmp-block", RTSTR, L"_X", RTREAL, 2.0, RTSTR,
                  L"_Y", RTREAL, 3.0, RTSTR, L"_Z", RTREAL, 2.0, RTPOINT, kOrigin, RTNONE),
      RTNORM);
  EXPECT_EQ(Processor::instance().activeCommand(), nullptr);
  EntityName scaled;
  ASSERT_EQ(qxdbEntLast(scaled), RTNORM);
  EXPECT_EQ(text(scaled, 2), L"vn-tmp-block");
  // Placed where the original stood, turned as it was, scaled by the factors given.
  EXPECT_NEAR(real(scaled, 10, 0), 20, 1e-9);
  EXPECT_NEAR(real(scaled, 10, 1), 10, 1e-9);
  EXPECT_NEAR(real(scaled, 50), 90, 1e-9);
  EXPECT_NEAR(real(scaled, 41), 2, 1e-12);
  EXPECT_NEAR(real(scaled, 42), 3, 1e-12);
  // Inside, the original stands at the origin unturned with its own scale.
  EXPECT_EQ(blockContents(L"vn-tmp-block"), std::vector<std::wstring>{L"INSERT"});
  ASSERT_EQ(qxedCommand(RTSTR, L"_.UCS", RTSTR, L"_P", RTNONE), RTNORM);
  // The temporary block is purged once its reference is gone.
  ASSERT_EQ(qxdbEntDel(scaled), RTNORM);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.PURGE", RTSTR, L"_B", RTSTR, L"", RTSTR, L"_N", RTNONE), RTNORM);
  EXPECT_FALSE(hasBlock(L"vn-tmp-block"));
  EXPECT_FALSE(hasBlock(L"TAG"));
  EXPECT_TRUE(said("2 blocks deleted."));
}

TEST_F(ScriptedBlocksTest, PurgeKeepsUsedBlocksAndAsksWhenVerifying) {
  EntityName used, unused, reference;
  line(0, 0, 1, 0, used);
  line(0, 0, 0, 1, unused);
  defineBlock(L"USED", used);
  defineBlock(L"SPARE", unused);
  insert(L"USED", kOrigin, reference);
  // Declined: it stays, and is not asked about again in the same run.
  ASSERT_EQ(
      qxedCommand(RTSTR, L"_.PURGE", RTSTR, L"_B", RTSTR, L"*", RTSTR, L"_Y", RTSTR, L"_N", RTNONE),
      RTNORM);
  EXPECT_TRUE(said("Purge block \"SPARE\"? [Yes/No] <N>:"));
  EXPECT_FALSE(said("Purge block \"USED\""));
  EXPECT_TRUE(hasBlock(L"SPARE"));
  EXPECT_EQ(Processor::instance().activeCommand(), nullptr);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.PURGE", RTSTR, L"_B", RTSTR, L"SP*", RTSTR, L"_Y", RTSTR, L"_Y",
                        RTNONE),
            RTNORM);
  EXPECT_FALSE(hasBlock(L"SPARE"));
  EXPECT_TRUE(hasBlock(L"USED"));
  EXPECT_TRUE(said("Deleting block \"SPARE\"."));
}

TEST_F(ScriptedBlocksTest, PurgeAllTakesLayersFreedByAPurgedBlock) {
  ASSERT_EQ(
      qxedCommand(RTSTR, L"_.-LAYER", RTSTR, L"_N", RTSTR, L"ONLYINBLOCK", RTSTR, L"", RTNONE),
      RTNORM);
  const double to[3] = {1, 1, 0};
  EntityName part;
  make(qxutBuildList(RTDXF0, L"LINE", 8, L"ONLYINBLOCK", 10, kOrigin, 11, to, RTNONE), part);
  defineBlock(L"HOLDER", part);
  ASSERT_TRUE(hasLayer(L"ONLYINBLOCK"));
  ASSERT_EQ(qxedCommand(RTSTR, L"_.-PURGE", RTSTR, L"_A", RTSTR, L"", RTSTR, L"_N", RTNONE),
            RTNORM);
  EXPECT_FALSE(hasBlock(L"HOLDER"));
  EXPECT_FALSE(hasLayer(L"ONLYINBLOCK"));
  EXPECT_TRUE(said("1 layer deleted."));
}

TEST_F(ScriptedBlocksTest, ScalesByThreeFactorsOrByACorner) {
  EntityName part;
  line(0, 0, 1, 0, part);
  const double at[3] = {1, 1, 0}, corner[3] = {5, 3, 0};
  defineBlock(L"P", part);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.-INSERT", RTSTR, L"P", RTPOINT, at, RTSTR, L"_XYZ", RTREAL, 2.0,
                        RTREAL, 3.0, RTREAL, 4.0, RTREAL, 0.0, RTNONE),
            RTNORM);
  EntityName reference;
  ASSERT_EQ(qxdbEntLast(reference), RTNORM);
  EXPECT_EQ(real(reference, 41), 2);
  EXPECT_EQ(real(reference, 42), 3);
  EXPECT_EQ(real(reference, 43), 4);
  // The corner's offsets from the insertion point are the X and Y factors.
  ASSERT_EQ(qxedCommand(RTSTR, L"_.-INSERT", RTSTR, L"P", RTPOINT, at, RTPOINT, corner, RTREAL, 0.0,
                        RTNONE),
            RTNORM);
  EXPECT_EQ(Processor::instance().activeCommand(), nullptr);
  ASSERT_EQ(qxdbEntLast(reference), RTNORM);
  EXPECT_EQ(real(reference, 41), 4);
  EXPECT_EQ(real(reference, 42), 2);
  // A zero factor is refused and asked again.
  ASSERT_EQ(qxedCommand(RTSTR, L"_.-INSERT", RTSTR, L"P", RTPOINT, at, RTSTR, L"0", RTSTR, L"-2",
                        RTSTR, L"", RTREAL, 0.0, RTNONE),
            RTNORM);
  ASSERT_EQ(qxdbEntLast(reference), RTNORM);
  EXPECT_EQ(real(reference, 41), -2);
  EXPECT_EQ(real(reference, 42), -2);
}

class InsertFileTest : public ScriptedBlocksTest {
 protected:
  void SetUp() override {
    ScriptedBlocksTest::SetUp();
    folder_ = fs::temp_directory_path() / ("korva_block_commands_" + std::to_string(::getpid()));
    fs::create_directories(folder_);
    writeSymbol();
    // The same in R12, whose entities the object layer can't copy between drawings.
    std::ofstream(folder_ / "OLD.dxf") << "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n"
                                          "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n"
                                          "10\n0.0\n20\n0.0\n30\n0.0\n11\n10.0\n21\n0.0\n31\n"
                                          "0.0\n0\nENDSEC\n0\nEOF\n";
  }
  // A symbol drawn around its base point 5,0 on a layer the drawing lacks.
  void writeSymbol() {
    QxDbDatabase symbol(true, true);
    QxDbLayerTable* layers = nullptr;
    ASSERT_EQ(symbol.getSymbolTable(layers, QxDb::kForWrite), Qxad::eOk);
    auto* layer = new QxDbLayerTableRecord;
    layer->setName(L"EDGE");
    ASSERT_EQ(layers->add(layer), Qxad::eOk);
    layer->close();
    layers->close();
    QxDbBlockTable* blocks = nullptr;
    ASSERT_EQ(symbol.getSymbolTable(blocks, QxDb::kForRead), Qxad::eOk);
    QxDbBlockTableRecord* modelSpace = nullptr;
    ASSERT_EQ(blocks->getAt(QXDB_MODEL_SPACE, modelSpace, QxDb::kForWrite), Qxad::eOk);
    blocks->close();
    auto* edge = new QxDbLine(QxGePoint3d(0, 0, 0), QxGePoint3d(10, 0, 0));
    edge->setLayer(L"EDGE");
    ASSERT_EQ(modelSpace->appendQxDbEntity(edge), Qxad::eOk);
    edge->close();
    modelSpace->close();
    api::drawingOf(symbol)->setHeaderVariable("$INSBASE", {{10, "5.0"}, {20, "0.0"}, {30, "0.0"}});
    ASSERT_EQ(symbol.saveAs(path().c_str()), Qxad::eOk);
  }
  void TearDown() override {
    ScriptedBlocksTest::TearDown();
    fs::remove_all(folder_);
  }
  std::wstring path() const { return api::fromUtf8((folder_ / "SYMBOL.dxf").string()); }
  fs::path folder_;
};

TEST_F(InsertFileTest, DrawingFileBecomesABlockOfItsName) {
  std::wstring file = path();
  ASSERT_EQ(qxedCommand(RTSTR, L"_.-INSERT", RTSTR, file.c_str(), RTPOINT, kOrigin, RTREAL, 1.0,
                        RTREAL, 1.0, RTREAL, 0.0, RTNONE),
            RTNORM);
  EXPECT_EQ(Processor::instance().activeCommand(), nullptr);
  EntityName reference;
  ASSERT_EQ(qxdbEntLast(reference), RTNORM);
  EXPECT_EQ(text(reference, 2), L"SYMBOL");
  // The definition stays when the reference goes.
  ASSERT_EQ(qxdbEntDel(reference), RTNORM);
  EXPECT_EQ(blockContents(L"SYMBOL"), std::vector<std::wstring>{L"LINE"});
  EXPECT_EQ(baseX(L"SYMBOL"), 5);
  EXPECT_TRUE(hasLayer(L"EDGE"));
  // Named again, the block of the drawing is offered before the file is read again.
  ASSERT_EQ(qxedCommand(RTSTR, L"_.-INSERT", RTSTR, file.c_str(), RTSTR, L"_N", RTPOINT, kOrigin,
                        RTREAL, 1.0, RTREAL, 1.0, RTREAL, 0.0, RTNONE),
            RTNORM);
  EXPECT_TRUE(said("Block \"SYMBOL\" already exists. Redefine it?"));
}

TEST_F(InsertFileTest, AMissingFileIsToldAndNothingIsMade) {
  EntityName before;
  line(0, 0, 1, 1, before);
  std::wstring missing = api::fromUtf8((folder_ / "NOPE.dxf").string());
  ASSERT_EQ(qxedCommand(RTSTR, L"_.-INSERT", RTSTR, missing.c_str(), RTNONE), RTNORM);
  EXPECT_TRUE(said("was not found"));
  EntityName last;
  ASSERT_EQ(qxdbEntLast(last), RTNORM);
  EXPECT_TRUE(last[0] == before[0] && last[1] == before[1]);
  EXPECT_FALSE(hasBlock(L"NOPE"));
  std::wstring old = api::fromUtf8((folder_ / "OLD.dxf").string());
  ASSERT_EQ(qxedCommand(RTSTR, L"_.-INSERT", RTSTR, old.c_str(), RTNONE), RTNORM);
  EXPECT_TRUE(said("is older than R13"));
  EXPECT_FALSE(hasBlock(L"OLD"));
}

TEST_F(ScriptedBlocksTest, AttributesAreAskedForWhenAttreqIsOne) {
  EntityName definition, other;
  make(qxutBuildList(RTDXF0, L"ATTDEF", 10, kOrigin, 40, 1.0, 1, L"A-1", 2, L"NUMBER", 3,
                     L"Door number", 70, 0, RTNONE),
       definition);
  defineBlock(L"DOOR", definition);
  const double at[3] = {5, 0, 0};
  ASSERT_EQ(qxedCommand(RTSTR, L"_.INSERT", RTSTR, L"DOOR", RTPOINT, at, RTREAL, 1.0, RTREAL, 1.0,
                        RTREAL, 0.0, RTSTR, L"B-7", RTNONE),
            RTNORM);
  EXPECT_TRUE(said("Door number <A-1>:"));
  EntityName reference, attribute;
  ASSERT_EQ(qxdbEntLast(reference), RTNORM);
  ASSERT_EQ(qxdbEntNext(reference, attribute), RTNORM);
  EXPECT_EQ(text(attribute, 0), L"ATTRIB");
  EXPECT_EQ(text(attribute, 1), L"B-7");
  EXPECT_NEAR(real(attribute, 10, 0), 5, 1e-12);

  ResultBuffer off{};
  off.type = RTSHORT;
  off.value.rint = 0;
  ASSERT_EQ(qxedSetVar(L"ATTREQ", &off), RTNORM);
  ASSERT_NO_FATAL_FAILURE(insert(L"DOOR", at, other));
  ASSERT_EQ(qxdbEntNext(other, attribute), RTNORM);
  EXPECT_EQ(text(attribute, 1), L"A-1");
}

}  // namespace
}  // namespace korva::cmd
