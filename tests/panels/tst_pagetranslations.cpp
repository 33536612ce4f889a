#include "PageContract.h"
#include "PagesByName.h"
#include "TestHome.h"

#include <QFile>
#include <QLabel>
#include <QSpinBox>
#include <QTranslator>
#include <QXmlStreamReader>

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
    // Every user text has its French: none waits for a translation, none is left empty
    // (the French window would show it in English).
    void everyTextHasItsFrench()
    {
        QFile catalogue(QStringLiteral(ZEL_TS_DIR "/Torvane_fr.ts"));
        QVERIFY(catalogue.open(QIODevice::ReadOnly));
        QXmlStreamReader xml(&catalogue);
        QString source;
        QStringList untranslated;
        int messages = 0;
        while (!xml.atEnd()) {
            if (xml.readNext() != QXmlStreamReader::StartElement)
                continue;
            if (xml.name() == QLatin1String("source")) {
                source = xml.readElementText();
            } else if (xml.name() == QLatin1String("translation")) {
                ++messages;
                const bool unfinished = xml.attributes().value(QLatin1String("type")) == QLatin1String("unfinished");
                if (unfinished || xml.readElementText(QXmlStreamReader::IncludeChildElements).trimmed().isEmpty())
                    untranslated.append(source);
            }
        }
        QVERIFY2(!xml.hasError(), qPrintable(xml.errorString()));
        QVERIFY(messages > 100);
        QVERIFY2(untranslated.isEmpty(), qPrintable(untranslated.join(QLatin1Char('\n'))));
    }

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
