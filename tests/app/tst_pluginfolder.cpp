// SPDX-FileCopyrightText: 2026 The Halvora developers
// SPDX-License-Identifier: MIT
#include <pluginfolder.h>

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class PluginFolderTest : public QObject {
    Q_OBJECT
private Q_SLOTS:
    void init() { m_prefix = std::make_unique<QTemporaryDir>(); }
    void anInstalledProgramLooksBelowItsPrefix();
    void aProgramInABuildTreeLooksBesideItself();
    void aProgramWithoutAnyLooksBesideItself();
    void whatThePersonChoseIsTaken();

private:
    QString path(const QString &name) const { return m_prefix->filePath(name); }
    QString program() const { return path(QStringLiteral("bin")); }

    std::unique_ptr<QTemporaryDir> m_prefix;
};

void PluginFolderTest::anInstalledProgramLooksBelowItsPrefix()
{
    const QString plugins = path(QStringLiteral(PLUGIN_DIR_BELOW_PREFIX));
    QVERIFY(QDir().mkpath(plugins));
    QVERIFY(QDir().mkpath(program()));
    QCOMPARE(PluginFolder::find({}, program()), plugins);
    // A folder beside it belongs to somebody else there.
    QVERIFY(QDir().mkpath(path(QStringLiteral("bin/plugins"))));
    QCOMPARE(PluginFolder::find({}, program()), plugins);
}

void PluginFolderTest::aProgramInABuildTreeLooksBesideItself()
{
    QVERIFY(QDir().mkpath(path(QStringLiteral("bin/plugins"))));
    QCOMPARE(PluginFolder::find({}, program()), path(QStringLiteral("bin/plugins")));
}

void PluginFolderTest::aProgramWithoutAnyLooksBesideItself()
{
    QCOMPARE(PluginFolder::find({}, program()), path(QStringLiteral("bin/plugins")));
}

void PluginFolderTest::whatThePersonChoseIsTaken()
{
    QVERIFY(QDir().mkpath(path(QStringLiteral(PLUGIN_DIR_BELOW_PREFIX))));
    QCOMPARE(PluginFolder::find(QStringLiteral("/some/where"), program()), QStringLiteral("/some/where"));
    QCOMPARE(PluginFolder::find(QStringLiteral("here"), program()),
             QDir::current().filePath(QStringLiteral("here")));
}

QTEST_GUILESS_MAIN(PluginFolderTest)
#include "tst_pluginfolder.moc"
