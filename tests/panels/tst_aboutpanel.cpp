#include "PageContract.h"
#include "TestHome.h"
#include "ZelAboutSettingsPanel.h"
#include "kqDMIApplication.h"

#include <QDesktopServices>
#include <QLabel>
#include <QRegularExpression>
#include <QTableWidget>
#include <QUrl>

using zel::ZelAboutSettingsPanel;

// Stands in for the desktop's handlers, so that no browser ever starts.
class UrlRecorder : public QObject
{
    Q_OBJECT

public:
    UrlRecorder()
    {
        for (const char* scheme : {"http", "https", "mailto"})
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "open");
    }
    ~UrlRecorder() override
    {
        for (const char* scheme : {"http", "https", "mailto"})
            QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }
    QStringList opened;

public Q_SLOTS:
    void open(const QUrl& url) { opened.append(QString::fromLatin1(url.toEncoded())); }
};

class TestAboutPanel : public QObject
{
    Q_OBJECT

    TestHome m_home;

private Q_SLOTS:
    void identityWithoutAnApplication()
    {
        PageWorld world;
        ZelAboutSettingsPanel* page = world.open(new ZelAboutSettingsPanel(nullptr, world.settings));
        QCOMPARE(world.widget<QLabel>("applicationVersion")->text(), zel::kqDMIApplication::GetKernelVersion());
        QVERIFY(!world.widget<QLabel>("applicationIcon")->pixmap().isNull());
        QVERIFY(world.widget("pluginsFrame")->isHidden());
        QVERIFY(!page->hasModifications() && !page->canResetContent() && !page->applyModifications());
    }

    void pluginsAreASnapshot()
    {
        PageWorld world;
        FakePlugin measure("Measure", "2.1"), unversioned("Sketch", "");
        world.app.plugins = {&measure, &unversioned};
        ZelAboutSettingsPanel* page = world.open(new ZelAboutSettingsPanel(&world.app, world.settings));
        const auto* table = world.widget<QTableWidget>("tableWidget");
        QVERIFY(!world.widget("pluginsFrame")->isHidden());
        QCOMPARE(table->rowCount(), 2);
        QCOMPARE(table->item(0, 0)->text(), "Measure");
        QCOMPARE(table->item(0, 1)->text(), "v. 2.1");
        QCOMPARE(table->item(1, 1)->text(), "v. ");

        // Opening the drawer again neither duplicates nor adds what was loaded since.
        FakePlugin late("Late", "1");
        world.app.plugins.push_back(&late);
        page->initializeWidget();
        QCOMPARE(table->rowCount(), 2);
    }

    void linksOpenThroughTheKernel()
    {
        PageWorld world;
        ZelAboutSettingsPanel page(&world.app, world.settings);
        const UrlRecorder recorder;
        auto* components = page.findChild<QLabel*>("libUseLabel_2");
        QVERIFY(components->text().contains(QLatin1String(qVersion())));
        QVERIFY(!components->openExternalLinks());

        // Every link of the components text, and any other, reaches the handler unchanged.
        QStringList links;
        const QRegularExpression href("href=\"([^\"]+)\"");
        for (auto match = href.globalMatch(components->text()); match.hasNext();)
            links.append(match.next().captured(1));
        QVERIFY(links.contains("https://www.gnu.org/licenses/lgpl-3.0.html"));
        links.append("mailto:support@example.com?subject=About%20Torvane");
        for (const QString& link : links)
            Q_EMIT components->linkActivated(link);
        QCOMPARE(recorder.opened, links);
    }
};

QTEST_MAIN(TestAboutPanel)
#include "tst_aboutpanel.moc"
