#include "PageContract.h"
#include "TestHome.h"
#include "ZelAboutSettingsPanel.h"
#include "ZelGeneralSettingsPanel.h"
#include "ZelImportSettingsPanel.h"
#include "ZelRendererSettingsPanel.h"
#include "ZelSimplificationSettingsPanel.h"

#include <QLabel>
#include <QSpinBox>
#include <QTranslator>

// The compiled catalogues reach the pages under the contexts the build really uses: the
// forms' texts and the texts of the pages' code.
class TestPageTranslations : public QObject
{
    Q_OBJECT

    TestHome m_home;

private Q_SLOTS:
    void pagesSpeakFrench_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("label");
        QTest::addColumn<QString>("text");
        QTest::newRow("Display") << "Display" << "Affichage" << "coreUsedLabel" << "1 cœur";
        QTest::newRow("Folders") << "General" << "Dossiers" << "label_12" << "Dossier du cache :";
        QTest::newRow("Simplification") << "Simplification" << "Simplification" << "levelCaption5"
                                        << "Compression maximale";
        QTest::newRow("Tessellation") << "Import" << "Tessellation" << "summaryLabel"
                                      << "À l’import de fichiers CAO natifs, Torvane choisit automatiquement les "
                                         "paramètres de tessellation qui produiront les triangles.\nVous pouvez "
                                         "choisir vous-même les paramètres les mieux adaptés à vos besoins.";
        QTest::newRow("About") << "About" << "À propos" << "label" << "Modules";
    }

    void pagesSpeakFrench()
    {
        QFETCH(QString, page);
        QFETCH(QString, name);
        QFETCH(QString, label);
        QFETCH(QString, text);
        QTranslator french;
        QVERIFY(french.load(QStringLiteral(ZEL_TRANSLATIONS_DIR "/Torvane_fr.qm")));
        QCoreApplication::installTranslator(&french);
        PageWorld world;
        std::unique_ptr<zel::ZelSettingsPanel> built;
        if (page == "Display")
            built = std::make_unique<zel::ZelRendererSettingsPanel>(&world.app, world.settings);
        else if (page == "General")
            built = std::make_unique<zel::ZelGeneralSettingsPanel>(&world.app, world.settings);
        else if (page == "Simplification")
            built = std::make_unique<zel::ZelSimplificationSettingsPanel>(&world.app, world.settings);
        else if (page == "Import")
            built = std::make_unique<zel::ZelImportSettingsPanel>(&world.app, world.settings);
        else
            built = std::make_unique<zel::ZelAboutSettingsPanel>(&world.app, world.settings);
        built->initializeWidget();
        QCoreApplication::removeTranslator(&french);
        QCOMPARE(built->getPanelName(), name);
        QCOMPARE(built->findChild<QLabel*>(label)->text(), text);
    }

    void englishSaysMegabytes()
    {
        QTranslator english;
        QVERIFY(english.load(QStringLiteral(ZEL_TRANSLATIONS_DIR "/Torvane_en.qm")));
        QCoreApplication::installTranslator(&english);
        PageWorld world;
        const zel::ZelGeneralSettingsPanel page(&world.app, world.settings);
        QCoreApplication::removeTranslator(&english);
        QCOMPARE(page.findChild<QSpinBox*>("databaseSpinBox")->suffix(), " MB");
    }
};

QTEST_MAIN(TestPageTranslations)
#include "tst_pagetranslations.moc"
