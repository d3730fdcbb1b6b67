// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <halvora/core.h>
#include <halvora/privatedataregistry.h>
#include <halvora/settingsregistry.h>

#include <QObject>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <new>

namespace {

class Part : public ISettings {
public:
    void resetSettings() override {}
};

/// Its ISettings does not begin where its QObject does.
class ObjectPart final : public QObject, public Part {};

class PrivatePart final : public QObject, public IPrivateData {
public:
    QList<QWidget *> createOptionWidgets() override { return {}; }
    void saveOptions(const QList<QWidget *> &) override {}
    void clearPrivateData() override {}
    void clearPrivateData(const QList<QWidget *> &) override {}
};

using Parts = QList<ISettings *>;

} // namespace

class TestPartRegistry : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void partsKeepTheOrderOfTheirRegistration();
    void registeringAgainChangesNothing();
    void nothingIsNoPart();
    void anObjectThatGoesIsForgotten();
    void aPartInThePlaceOfOneThatWentIsANewOne();
    void clearingForgetsEveryPart();
    void theCoreHasOneRegistryOfEachKind();
};

void TestPartRegistry::partsKeepTheOrderOfTheirRegistration()
{
    Part first;
    ObjectPart second;
    Part third;
    SettingsRegistry registry;
    QCOMPARE(registry.parts(), Parts());
    for (Part *part : std::initializer_list<Part *>{&third, &second, &first})
        registry.registerSettings(part);
    QCOMPARE(registry.parts(), Parts({&third, &second, &first}));
}

void TestPartRegistry::registeringAgainChangesNothing()
{
    Part first;
    ObjectPart second;
    SettingsRegistry registry;
    for (Part *part : std::initializer_list<Part *>{&first, &second, &first, &second})
        registry.registerSettings(part);
    QCOMPARE(registry.parts(), Parts({&first, &second}));
}

void TestPartRegistry::nothingIsNoPart()
{
    SettingsRegistry registry;
    registry.registerSettings(nullptr);
    QCOMPARE(registry.parts(), Parts());
}

void TestPartRegistry::anObjectThatGoesIsForgotten()
{
    Part first;
    auto second = std::make_unique<ObjectPart>();
    ObjectPart third;
    SettingsRegistry registry;
    for (Part *part : std::initializer_list<Part *>{&first, second.get(), &third})
        registry.registerSettings(part);
    second.reset();
    QCOMPARE(registry.parts(), Parts({&first, &third}));
}

void TestPartRegistry::aPartInThePlaceOfOneThatWentIsANewOne()
{
    alignas(ObjectPart) unsigned char place[sizeof(ObjectPart)];
    SettingsRegistry registry;
    Part other;
    auto *part = new (place) ObjectPart;
    registry.registerSettings(part);
    registry.registerSettings(&other);
    part->~ObjectPart();
    part = new (place) ObjectPart;
    QCOMPARE(registry.parts(), Parts({&other}));
    registry.registerSettings(part);
    QCOMPARE(registry.parts(), Parts({&other, part}));
    part->~ObjectPart();
    QCOMPARE(registry.parts(), Parts({&other}));
}

void TestPartRegistry::clearingForgetsEveryPart()
{
    Part first;
    ObjectPart second;
    SettingsRegistry registry;
    registry.registerSettings(&first);
    registry.registerSettings(&second);
    registry.clear();
    QCOMPARE(registry.parts(), Parts());
    registry.registerSettings(&second);
    QCOMPARE(registry.parts(), Parts({&second}));
}

void TestPartRegistry::theCoreHasOneRegistryOfEachKind()
{
    const QTemporaryDir profile;
    const Core core(profile.path());
    PrivatePart data;
    ObjectPart settings;
    core.privateData()->registerPrivateData(&data);
    core.settingsRegistry()->registerSettings(&settings);
    QCOMPARE(core.privateData()->parts(), QList<IPrivateData *>({&data}));
    QCOMPARE(core.settingsRegistry()->parts(), Parts({&settings}));
}

QTEST_GUILESS_MAIN(TestPartRegistry)
#include "tst_partregistry.moc"
