#include "PageContract.h"
#include "PagesByName.h"
#include "TestHome.h"

#include <QLabel>
#include <QSpinBox>
#include <QTranslator>

// The compiled catalogues reach the pages under the contexts the build really uses: the
// forms' texts and the texts of the pages' code.
class TestPageTranslations : public QObject
{
    Q_OBJECT

    TestHome m_home;

    // The page named `name`, built while the catalogue `language` is installed.
    static std::unique_ptr<zel::ZelSettingsPanel> pageIn(const char* language, const QString& name, PageWorld& world)
    {
        QTranslator catalogue;
        if (!catalogue.load(QStringLiteral(ZEL_TRANSLATIONS_DIR "/Torvane_%1.qm").arg(QLatin1String(language))))
            return nullptr;
        QCoreApplication::installTranslator(&catalogue);
        std::unique_ptr<zel::ZelSettingsPanel> page = makePage(name, &world.app, world.settings);
        page->initializeWidget();
        QCoreApplication::removeTranslator(&catalogue);
        return page;
    }

private Q_SLOTS:
    void pagesSpeakFrench_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("text");
        QTest::newRow("Display") << "Affichage" << "coreUsedLabel" << "1 cœur";
        QTest::newRow("Folders") << "Dossiers" << "label_12" << "Dossier du cache :";
        QTest::newRow("Simplification") << "Simplification" << "levelCaption5" << "Compression maximale";
        QTest::newRow("Tessellation") << "Tessellation" << "summaryLabel"
                                      << "À l’import de fichiers CAO natifs, Torvane choisit automatiquement les "
                                         "paramètres de tessellation qui produiront les triangles.\nVous pouvez "
                                         "choisir vous-même les paramètres les mieux adaptés à vos besoins.";
        QTest::newRow("About") << "À propos" << "label" << "Modules";
    }

    void pagesSpeakFrench()
    {
        QFETCH(QString, name);
        QFETCH(QString, label);
        QFETCH(QString, text);
        PageWorld world;
        const auto page = pageIn("fr", QLatin1String(QTest::currentDataTag()), world);
        QVERIFY(page);
        QCOMPARE(page->getPanelName(), name);
        QCOMPARE(page->findChild<QLabel*>(label)->text(), text);
    }

    void englishSaysMegabytes()
    {
        PageWorld world;
        const auto page = pageIn("en", "Folders", world);
        QVERIFY(page);
        QCOMPARE(page->findChild<QSpinBox*>("databaseSpinBox")->suffix(), " MB");
    }
};

QTEST_MAIN(TestPageTranslations)
#include "tst_pagetranslations.moc"
