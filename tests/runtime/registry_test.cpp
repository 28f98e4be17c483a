// The system registry, its dictionaries and the services in it.
#include <gtest/gtest.h>

#include "qx_command.h"
#include "qx_runtime.h"

namespace {

class Marker : public QxRxObject {
 public:
  explicit Marker(int& deaths) : deaths_(deaths) {}
  ~Marker() override { ++deaths_; }

 private:
  int& deaths_;
};

TEST(DictionaryTest, KeysIgnoreCaseAndReplacingGivesBackTheOldEntry) {
  int deaths = 0;
  auto* dictionary = new QxRxDictionary;
  auto* first = new Marker(deaths);
  auto* second = new Marker(deaths);
  EXPECT_EQ(dictionary->atPut(L"Layer Tools", first), nullptr);
  EXPECT_EQ(dictionary->at(L"LAYER TOOLS"), first);
  EXPECT_TRUE(dictionary->has(L"layer tools"));
  EXPECT_FALSE(dictionary->has(L"layer"));
  EXPECT_EQ(dictionary->atPut(L"LAYER tools", second), first);
  EXPECT_EQ(dictionary->numEntries(), 1u);
  delete first;
  EXPECT_EQ(dictionary->remove(L"layer TOOLS"), second);
  EXPECT_EQ(dictionary->remove(L"layer tools"), nullptr);
  EXPECT_EQ(dictionary->numEntries(), 0u);
  dictionary->atPut(L"kept", second);
  delete dictionary;  // owns what it still holds
  EXPECT_EQ(deaths, 2);
}

TEST(DictionaryTest, NullKeysFindNothing) {
  QxRxDictionary dictionary;
  EXPECT_EQ(dictionary.atPut(nullptr, nullptr), nullptr);
  EXPECT_EQ(dictionary.at(nullptr), nullptr);
  EXPECT_EQ(dictionary.numEntries(), 0u);
}

TEST(RegistryTest, HoldsTheCommandStackTheLinkerAndTheServices) {
  QxRxDictionary* registry = qxrxSysRegistry();
  ASSERT_NE(registry, nullptr);
  EXPECT_EQ(registry, qxrxSysRegistry());
  EXPECT_NE(QxEdCommandStack::cast(registry->at(L"QXAD_REGISTERED_COMMANDS")), nullptr);
  EXPECT_NE(QxRxDynamicLinker::cast(registry->at(L"DynamicLinker")), nullptr);
  QxRxDictionary* services = QxRxDictionary::cast(registry->at(L"ServiceDictionary"));
  ASSERT_NE(services, nullptr);
  // The wrong class is refused by cast.
  EXPECT_EQ(QxEdCommandStack::cast(services), nullptr);
}

TEST(RegistryTest, AServiceIsRegisteredOnceAndRemovedByItsOwner) {
  EXPECT_FALSE(qxrxServiceIsRegistered(L"TestService"));
  QxRxObject* service = qxrxRegisterService(L"TestService");
  ASSERT_NE(service, nullptr);
  EXPECT_NE(QxRxService::cast(service), nullptr);
  EXPECT_EQ(qxrxRegisterService(L"TESTSERVICE"), service);
  EXPECT_TRUE(qxrxServiceIsRegistered(L"testservice"));
  auto* services = QxRxDictionary::cast(qxrxSysRegistry()->at(L"ServiceDictionary"));
  delete services->remove(L"TestService");
  EXPECT_FALSE(qxrxServiceIsRegistered(L"TestService"));
  EXPECT_EQ(qxrxRegisterService(L""), nullptr);
  EXPECT_FALSE(qxrxServiceIsRegistered(nullptr));
}

}  // namespace
