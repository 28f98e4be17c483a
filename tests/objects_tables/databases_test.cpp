#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "api/utf8.h"
#include "db/value_text.h"
#include "qx_db_curves.h"
#include "qx_db_database.h"
#include "qx_db_entity.h"
#include "qx_entities.h"
#include "qx_memory.h"
#include "tables_fixture.h"

namespace {

namespace fs = std::filesystem;
using korva::db::Record;

class Databases : public TablesTest {
 protected:
  void SetUp() override {
    TablesTest::SetUp();
    folder_ = fs::temp_directory_path() / ("korva_objects_tables_" + std::to_string(::getpid()));
    fs::create_directories(folder_);
  }
  void TearDown() override {
    TablesTest::TearDown();
    fs::remove_all(folder_);
  }
  std::wstring pathOf(const std::string& name) {
    return korva::api::fromUtf8((folder_ / name).string());
  }
  static std::string contents(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
  }
  // Runs Python with ezdxf; the script's exit status.
  static int python(const std::string& script) {
    return std::system((std::string(KORVA_PYTHON) + " -c '" + script + "'").c_str());
  }
  fs::path folder_;
};

TEST_F(Databases, SideDatabaseIsNotTheWorkingOne) {
  QxDbDatabase side(true);
  EXPECT_NE(s_pServices->workingDatabase(), &side);
  EXPECT_EQ(working()->serial(), database().serial());
  QxDbLayerTable* layers = nullptr;
  ASSERT_EQ(side.getSymbolTable(layers, QxDb::kForWrite), Qxad::eOk);
  auto* layer = new QxDbLayerTableRecord;
  layer->setName(L"SideOnly");
  ASSERT_EQ(layers->add(layer), Qxad::eOk);
  EXPECT_EQ(layer->database(), &side);
  layer->close();
  layers->close();
  EXPECT_EQ(database().tableEntry("LAYER", "SideOnly"), nullptr);
  QxDbLayerTableRecord* current = nullptr;
  ASSERT_EQ(korva::api::openAs(current, side.clayer(), QxDb::kForRead), Qxad::eOk);
  wchar_t* name = nullptr;
  current->getName(name);
  EXPECT_EQ(taken(name), "0");
  current->close();
  QxDbDatabase empty(false);
  EXPECT_EQ(empty.getSymbolTable(layers), Qxad::eKeyNotFound);
}

TEST_F(Databases, ShareModeLocksTheFile) {
  fs::path file = folder_ / "shared.dxf";
  fs::copy_file(fs::path(SAMPLE_DRAWINGS) / "r2000_unpadded.dxf", file);
  auto reader = std::make_unique<QxDbDatabase>(false);
  ASSERT_EQ(reader->readDwgFile(pathOf("shared.dxf").c_str(), QxDb::kDenyWrite), Qxad::eOk);
  EXPECT_EQ(reader->readDwgFile(pathOf("shared.dxf").c_str()), Qxad::eAlreadyInDb);
  QxDbDatabase secondReader(false);
  EXPECT_EQ(secondReader.readDwgFile(pathOf("shared.dxf").c_str(), QxDb::kDenyWrite), Qxad::eOk);
  QxDbDatabase exclusive(false);
  EXPECT_EQ(exclusive.readDwgFile(pathOf("shared.dxf").c_str(), QxDb::kDenyReadWrite),
            Qxad::eFileAccessErr);
  // Another database may not write a file whose readers deny writing.
  QxDbDatabase writer(true);
  EXPECT_EQ(writer.saveAs(pathOf("shared.dxf").c_str()), Qxad::eFileAccessErr);
  reader.reset();
  EXPECT_EQ(writer.saveAs(pathOf("shared.dxf").c_str()),
            Qxad::eFileAccessErr);  // the second reader
  QxDbDatabase missing(false);
  EXPECT_EQ(missing.readDwgFile(pathOf("none.dxf").c_str()), Qxad::eFileNotFound);
}

TEST_F(Databases, SaveAsConvertsAnR2000DrawingToTheNewestVersion) {
  fs::path source = folder_ / "old.dxf";
  ASSERT_EQ(
      python("import ezdxf, sys\n"
             "doc = ezdxf.new(\"R2000\")\n"
             "doc.layers.add(\"Stra\\u00dfe\")\n"
             "doc.modelspace().add_line((0, 0), (1, 1), dxfattribs={\"layer\": \"Stra\\u00dfe\"})\n"
             "doc.saveas(sys.argv[1] if len(sys.argv) > 1 else \"" +
             source.string() + "\")\n"),
      0);
  ASSERT_NE(contents(source).find("Stra\xDF"
                                  "e"),
            std::string::npos);  // code page 1252
  QxDbDatabase side(false);
  ASSERT_EQ(side.readDwgFile(pathOf("old.dxf").c_str(), QxDb::kDenyWrite), Qxad::eOk);
  ASSERT_EQ(side.saveAs(pathOf("old.dxf").c_str(), true, QxDb::kSaveNewest), Qxad::eOk);
  EXPECT_TRUE(fs::exists(folder_ / "old.bak"));
  std::string saved = contents(source);
  EXPECT_NE(saved.find("AC1032"), std::string::npos);
  EXPECT_NE(saved.find("Stra\xC3\x9F"
                       "e"),
            std::string::npos);  // UTF-8
  EXPECT_EQ(python("import ezdxf, sys\n"
                   "doc = ezdxf.readfile(\"" +
                   source.string() +
                   "\")\n"
                   "auditor = doc.audit()\n"
                   "for e in auditor.errors: print(e)\n"
                   "ok = doc.dxfversion == \"AC1032\" and \"Stra\\u00dfe\" in doc.layers and not "
                   "auditor.has_errors\n"
                   "sys.exit(0 if ok else 1)\n"),
            0);
}

TEST_F(Databases, AnR12DrawingCannotBeConverted) {
  fs::path file = folder_ / "r12.dxf";
  fs::copy_file(fs::path(SAMPLE_DRAWINGS) / "r12_handles_crlf.dxf", file);
  std::string before = contents(file);
  QxDbDatabase side(false);
  ASSERT_EQ(side.readDwgFile(pathOf("r12.dxf").c_str(), QxDb::kDenyNone), Qxad::eOk);
  EXPECT_EQ(side.saveAs(pathOf("r12.dxf").c_str(), true, QxDb::kSaveNewest), Qxad::eNotApplicable);
  EXPECT_EQ(contents(file), before);
  EXPECT_FALSE(fs::exists(folder_ / "r12.bak"));
  EXPECT_EQ(side.saveAs(pathOf("r12-copy.dxf").c_str(), false, QxDb::kSaveAsRead), Qxad::eOk);
}

// A leader pointing at its text: the copies must point at each other.
TEST_F(Databases, DeepCloneTranslatesPointersAmongTheCopies) {
  Record* text = database().addEntity(
      groups("100 AcDbEntity|8 Notes|100 AcDbMText|10 0.0|20 0.0|30 0.0|40 1.0|1 note"), "MTEXT");
  addLayer("Notes");
  Record* leader = database().addEntity(
      groups("100 AcDbEntity|8 Notes|100 AcDbLeader|3 Standard|76 2|10 5.0|20 5.0|30 0.0|"
             "10 1.0|20 1.0|30 0.0|340 " +
             korva::db::formatHandle(text->handle())),
      "LEADER");
  QxDbObjectIdArray ids;
  ids.append(idOf(text));
  ids.append(idOf(leader));

  // Into this drawing.
  QxDbIdMapping mapping;
  QxDbObjectId modelSpace = idOf(database().tableEntry("BLOCK_RECORD", "*Model_Space"));
  ASSERT_EQ(working()->deepCloneObjects(ids, modelSpace, mapping), Qxad::eOk);
  QxDbIdPair pair(idOf(leader), QxDbObjectId(), false);
  ASSERT_TRUE(mapping.compute(pair));
  QxDbIdPair textPair(idOf(text), QxDbObjectId(), false);
  ASSERT_TRUE(mapping.compute(textPair));
  EXPECT_TRUE(pair.isPrimary());
  Record* leaderCopy = database().lookup(pair.value().handle().value());
  EXPECT_NE(leaderCopy, leader);
  EXPECT_EQ(leaderCopy->find(340), korva::db::formatHandle(textPair.value().handle().value()));
  EXPECT_EQ(leader->find(340), korva::db::formatHandle(text->handle()));

  // Into another drawing: the layer comes along.
  QxDbDatabase other(true);
  QxDbBlockTable* blocks = nullptr;
  ASSERT_EQ(other.getSymbolTable(blocks), Qxad::eOk);
  QxDbObjectId otherSpace;
  ASSERT_EQ(blocks->getAt(QXDB_MODEL_SPACE, otherSpace), Qxad::eOk);
  blocks->close();
  QxDbIdMapping across;
  ASSERT_EQ(working()->deepCloneObjects(ids, otherSpace, across), Qxad::eOk);
  EXPECT_EQ(across.destDb(), &other);
  QxDbIdMappingIter iterator(across);
  int copies = 0;
  for (iterator.start(); !iterator.done(); iterator.next()) {
    QxDbIdPair each;
    ASSERT_TRUE(iterator.getMap(each));
    EXPECT_EQ(each.value().databaseSerial(), other.serial());
    ++copies;
  }
  EXPECT_EQ(copies, 2);
  QxDbLayerTable* layers = nullptr;
  ASSERT_EQ(other.getSymbolTable(layers), Qxad::eOk);
  EXPECT_TRUE(layers->has(L"Notes"));
  layers->close();
  QxDbIdPair acrossLeader(idOf(leader), QxDbObjectId(), false);
  ASSERT_TRUE(across.compute(acrossLeader));
  QxDbIdPair acrossText(idOf(text), QxDbObjectId(), false);
  ASSERT_TRUE(across.compute(acrossText));
  Record* copy = korva::api::recordOf(acrossLeader.value());
  EXPECT_EQ(copy->find(340), korva::db::formatHandle(acrossText.value().handle().value()));
  EXPECT_EQ(copy->owner(), otherSpace.handle().value());
}

TEST_F(Databases, WblockMakesADrawingOfTheEntities) {
  Record* line = addLine("0");
  QxDbObjectIdArray ids;
  ids.append(idOf(line));
  QxDbDatabase* output = nullptr;
  ASSERT_EQ(working()->wblock(output, ids, QxGePoint3d(2, 3, 0)), Qxad::eOk);
  ASSERT_NE(output, nullptr);
  QxDbBlockTable* blocks = nullptr;
  ASSERT_EQ(output->getSymbolTable(blocks), Qxad::eOk);
  QxDbBlockTableRecord* model = nullptr;
  ASSERT_EQ(blocks->getAt(QXDB_MODEL_SPACE, model, QxDb::kForRead), Qxad::eOk);
  blocks->close();
  QxDbBlockTableRecordIterator* iterator = nullptr;
  ASSERT_EQ(model->newIterator(iterator), Qxad::eOk);
  int count = 0;
  for (; !iterator->done(); iterator->step()) ++count;
  delete iterator;
  model->close();
  EXPECT_EQ(count, 1);
  ASSERT_EQ(output->saveAs(pathOf("wblock.dxf").c_str()), Qxad::eOk);
  EXPECT_NE(contents(folder_ / "wblock.dxf").find("$INSBASE\n 10\n2.0\n 20\n3.0"),
            std::string::npos);
  delete output;
}

TEST_F(Databases, PurgeKeepsOnlyWhatNothingUses) {
  Record* used = addLayer("Used");
  Record* unused = addLayer("Unused");
  addLine("Used");
  QxDbObjectIdArray ids;
  ids.append(idOf(used));
  ids.append(idOf(unused));
  ids.append(idOf(database().tableEntry("LAYER", "0")));
  ids.append(idOf(database().tableEntry("LTYPE", "Continuous")));
  ASSERT_EQ(working()->purge(ids), Qxad::eOk);
  ASSERT_EQ(ids.length(), 1);
  EXPECT_EQ(ids[0], idOf(unused));
}

TEST_F(Databases, ServicesNameKorvasFolders) {
  wchar_t folder[1024];
  ASSERT_EQ(s_pServices->getInstallFolder(folder, 1024), Qxad::eOk);
  std::error_code error;
  fs::path program = fs::read_symlink("/proc/self/exe", error);
  EXPECT_EQ(korva::api::toUtf8(folder), program.parent_path().string() + "/");
  wchar_t tiny[4];
  EXPECT_EQ(s_pServices->getInstallFolder(tiny, 4), Qxad::eInvalidInput);
  EXPECT_NE(std::wstring(s_pServices->getRegistryProductRootKey()).find(L"Korva"),
            std::wstring::npos);
  ASSERT_EQ(s_pServices->getExportFolder(folder, 1024), Qxad::eOk);
  EXPECT_EQ(korva::api::toUtf8(folder), fs::current_path().string() + "/");
}

// The type, layout and owner of an entity list, as text.
std::string listSummary(const EntityName name, bool withOwner = true) {
  ResultBuffer* list = qxdbEntGet(name);
  if (!list) return "no list";
  std::string summary;
  for (const ResultBuffer* node = list; node; node = node->next) {
    if (node->type == 0 || node->type == 2 || node->type == 410) {
      summary += std::to_string(node->type) + "=" + korva::api::toUtf8(node->value.rstring) + " ";
    }
    if (node->type == -1 && std::memcmp(node->value.rlname, name, sizeof(EntityName)) != 0) {
      summary += "other name ";
    }
    if (node->type == 330 && withOwner) {
      summary += "owner: [" + listSummary(node->value.rlname, false) + "] ";
    }
  }
  qxutRelRb(list);
  return summary;
}

TEST_F(Databases, EntitiesOfASideDatabaseHaveListsWhileItLives) {
  auto side = std::make_unique<QxDbDatabase>(true);
  QxDbBlockTable* blocks = nullptr;
  ASSERT_EQ(side->getSymbolTable(blocks, QxDb::kForRead), Qxad::eOk);
  QxDbObjectId spaces[2];
  blocks->getAt(L"*Model_Space", spaces[0]);
  blocks->getAt(L"*Paper_Space", spaces[1]);
  blocks->close();
  EntityName names[2];
  for (int i = 0; i < 2; ++i) {
    QxDbBlockTableRecord* space = nullptr;
    ASSERT_EQ(korva::api::openAs(space, spaces[i], QxDb::kForWrite), Qxad::eOk);
    auto* line = new QxDbLine(QxGePoint3d(0, 0, 0), QxGePoint3d(1, 1, 0));
    QxDbObjectId id;
    ASSERT_EQ(space->appendQxDbEntity(id, line), Qxad::eOk);
    line->close();
    space->close();
    ASSERT_EQ(qxdbGetHysName(names[i], id), Qxad::eOk);
  }
  EXPECT_EQ(listSummary(names[0]), "0=LINE owner: [0=BLOCK_RECORD 2=*Model_Space ] 410=Model ");
  EXPECT_EQ(listSummary(names[1]), "0=LINE owner: [0=BLOCK_RECORD 2=*Paper_Space ] 410=Layout1 ");
  side.reset();
  EXPECT_EQ(listSummary(names[0]), "no list");
}

}  // namespace
