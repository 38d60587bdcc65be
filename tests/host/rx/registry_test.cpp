// The system registry, its dictionaries, runtime classes and services.

#include <gtest/gtest.h>

#include <memory>

#include "host/rx/dictionary.h"
#include "kd/rx/class.h"
#include "kd/rx/commandstack.h"
#include "kd/rx/dynamiclinker.h"
#include "kd/rx/registry.h"
#include "kd/rx/service.h"

namespace {

KdRxDictionary* dictionary(const wchar_t* name) {
    return KdRxObject::cast<KdRxDictionary>(kdrxSysRegistry()->at(name));
}

}  // namespace

TEST(Registry, holds_the_hosts_own_entries_under_their_classes) {
    EXPECT_NE(KdRxObject::cast<KdRxDynamicLinker>(kdrxSysRegistry()->at(L"DynamicLinker")), nullptr);
    EXPECT_NE(KdRxObject::cast<KdEdCommandStack>(kdrxSysRegistry()->at(L"KDAD_REGISTERED_COMMANDS")), nullptr);
    EXPECT_NE(dictionary(L"ServiceDictionary"), nullptr);
    EXPECT_NE(dictionary(L"ClassDictionary"), nullptr);
    EXPECT_EQ(kdrxSysRegistry()->numEntries(), 4);
}

TEST(Registry, cast_refuses_an_entry_of_another_class) {
    EXPECT_EQ(KdRxObject::cast<KdEdCommandStack>(kdrxSysRegistry()->at(L"DynamicLinker")), nullptr);
    EXPECT_EQ(KdRxObject::cast<KdRxDictionary>(kdrxSysRegistry()->at(L"no such entry")), nullptr);
}

TEST(ObjectDictionary, gives_back_what_was_put_and_what_it_replaced) {
    kdhost::ObjectDictionary objects;
    KdRxService first;
    KdRxService second;
    EXPECT_EQ(objects.atPut(L"name", &first), nullptr);
    EXPECT_EQ(objects.at(L"name"), &first);
    EXPECT_EQ(objects.atPut(L"name", &second), &first);
    EXPECT_EQ(objects.numEntries(), 1);
    EXPECT_TRUE(objects.has(L"name"));
    EXPECT_EQ(objects.remove(L"name"), &second);
    EXPECT_FALSE(objects.has(L"name"));
    EXPECT_EQ(objects.remove(L"name"), nullptr);
}

TEST(ObjectDictionary, compares_names_exactly) {
    kdhost::ObjectDictionary objects;
    KdRxService service;
    objects.atPut(L"Name", &service);
    EXPECT_EQ(objects.at(L"name"), nullptr);
    EXPECT_EQ(objects.at(L"Nam"), nullptr);
    EXPECT_EQ(objects.at(L"Name"), &service);
}

TEST(ObjectDictionary, a_missing_name_or_object_changes_nothing) {
    kdhost::ObjectDictionary objects;
    KdRxService service;
    EXPECT_EQ(objects.atPut(nullptr, &service), nullptr);
    EXPECT_EQ(objects.atPut(L"", &service), nullptr);
    EXPECT_EQ(objects.atPut(L"name", nullptr), nullptr);
    EXPECT_EQ(objects.at(nullptr), nullptr);
    EXPECT_EQ(objects.remove(nullptr), nullptr);
    EXPECT_EQ(objects.numEntries(), 0);
}

TEST(RuntimeClass, an_object_is_of_its_class_and_of_every_class_above) {
    const KdRxService service;
    EXPECT_EQ(service.isA(), KdRxService::desc());
    EXPECT_TRUE(service.isKindOf(KdRxService::desc()));
    EXPECT_TRUE(service.isKindOf(KdRxObject::desc()));
    EXPECT_FALSE(service.isKindOf(KdRxDictionary::desc()));
    EXPECT_FALSE(service.isKindOf(nullptr));
    EXPECT_STREQ(service.isA()->name(), L"KdRxService");
    EXPECT_EQ(service.isA()->myParent(), KdRxObject::desc());
    EXPECT_EQ(KdRxObject::desc()->myParent(), nullptr);
}

TEST(RuntimeClass, joins_the_class_dictionary_when_the_hierarchy_is_built_and_leaves_it_on_request) {
    KdRxDictionary* const classes = dictionary(L"ClassDictionary");
    KdRxClass cls(L"TestJoins", KdRxObject::desc());
    EXPECT_FALSE(classes->has(L"TestJoins"));
    kdrxBuildClassHierarchy();
    EXPECT_EQ(classes->at(L"TestJoins"), &cls);
    deleteKdRxClass(&cls);
    EXPECT_FALSE(classes->has(L"TestJoins"));
    kdrxBuildClassHierarchy();
    EXPECT_FALSE(classes->has(L"TestJoins"));
}

TEST(RuntimeClass, of_two_classes_of_one_name_the_first_stays) {
    KdRxDictionary* const classes = dictionary(L"ClassDictionary");
    KdRxClass first(L"TestTwin", KdRxObject::desc());
    kdrxBuildClassHierarchy();
    {
        KdRxClass second(L"TestTwin", KdRxObject::desc());
        kdrxBuildClassHierarchy();
        EXPECT_EQ(classes->at(L"TestTwin"), &first);
        deleteKdRxClass(&second);
        EXPECT_EQ(classes->at(L"TestTwin"), &first);
    }
    EXPECT_EQ(classes->at(L"TestTwin"), &first);
}

TEST(RuntimeClass, a_description_that_ends_leaves_the_dictionary_entered_or_not) {
    KdRxDictionary* const classes = dictionary(L"ClassDictionary");
    {
        const KdRxClass entered(L"TestEnds", KdRxObject::desc());
        kdrxBuildClassHierarchy();
        EXPECT_TRUE(classes->has(L"TestEnds"));
        const KdRxClass pending(L"TestEndsUnentered", KdRxObject::desc());
    }
    kdrxBuildClassHierarchy();
    EXPECT_FALSE(classes->has(L"TestEnds"));
    EXPECT_FALSE(classes->has(L"TestEndsUnentered"));
}

TEST(RuntimeClass, deleting_null_does_nothing) {
    const int before = dictionary(L"ClassDictionary")->numEntries();
    deleteKdRxClass(nullptr);
    EXPECT_EQ(dictionary(L"ClassDictionary")->numEntries(), before);
}

TEST(Service, is_registered_until_it_is_taken_out_of_its_dictionary) {
    EXPECT_FALSE(kdrxServiceIsRegistered(L"TEST_SERVICE"));
    EXPECT_TRUE(kdrxRegisterService(L"TEST_SERVICE"));
    EXPECT_TRUE(kdrxServiceIsRegistered(L"TEST_SERVICE"));
    EXPECT_FALSE(kdrxRegisterService(L"TEST_SERVICE"));
    const std::unique_ptr<KdRxObject> entry(dictionary(L"ServiceDictionary")->remove(L"TEST_SERVICE"));
    EXPECT_NE(KdRxObject::cast<KdRxService>(entry.get()), nullptr);
    EXPECT_FALSE(kdrxServiceIsRegistered(L"TEST_SERVICE"));
}

TEST(Service, a_missing_name_is_not_registered) {
    EXPECT_FALSE(kdrxRegisterService(nullptr));
    EXPECT_FALSE(kdrxRegisterService(L""));
    EXPECT_FALSE(kdrxServiceIsRegistered(nullptr));
}

TEST(Service, without_the_service_dictionary_nothing_can_be_registered) {
    KdRxObject* const services = kdrxSysRegistry()->remove(L"ServiceDictionary");
    EXPECT_FALSE(kdrxRegisterService(L"TEST_SERVICE"));
    EXPECT_FALSE(kdrxServiceIsRegistered(L"TEST_SERVICE"));
    kdrxSysRegistry()->atPut(L"ServiceDictionary", services);
    EXPECT_FALSE(kdrxServiceIsRegistered(L"TEST_SERVICE"));
}
