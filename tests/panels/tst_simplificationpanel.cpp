#include "PageContract.h"
#include "TestHome.h"
#include "ZelSettingsKeys.h"
#include "ZelSimplificationSettingsPanel.h"

#include <QDoubleSpinBox>

using zel::ZelSimplificationSettingsPanel;
namespace Keys = zel::SettingsKeys;
using Levels = QList<int>;

namespace {

const Defaults Registered = {{Keys::SimplificationRatios, "1/0.75/0.5/0.25/0.1"}};

struct SimplificationPage : PageWorld {
    explicit SimplificationPage(const QString& stored, const Defaults& defaults = Registered,
                                Host host = Host::Viewer)
        : PageWorld(stored.isNull() ? Defaults() : Defaults{{Keys::SimplificationRatios, stored}}, defaults, host)
    {
        show(page);
        page->initializeWidget();
    }
    QDoubleSpinBox* level(int level) const
    {
        return page->findChild<QDoubleSpinBox*>(QStringLiteral("ratio%1").arg(level));
    }
    // Levels 2 to 5, as shown.
    Levels shown() const { return {shownAt(2), shownAt(3), shownAt(4), shownAt(5)}; }
    int shownAt(int n) const { return int(level(n)->value()); }
    // Typed into a level and confirmed with Return, as a user does.
    void type(int n, int value) const
    {
        click(level(n));
        QTest::keyClick(level(n), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(level(n), QString::number(value));
        QTest::keyClick(level(n), Qt::Key_Return);
    }
    QString stored() const { return settings.value(Keys::SimplificationRatios).toString(); }

    ZelSimplificationSettingsPanel* page = new ZelSimplificationSettingsPanel(&app, settings);
};

} // namespace

class TestSimplificationPanel : public QObject
{
    Q_OBJECT

    TestHome m_home;

private Q_SLOTS:
    void contract()
    {
        SimplificationPage simplification("1/0.5/0.4/0.3/0.2");
        QCOMPARE(simplification.shown(), (Levels{50, 40, 30, 20}));
        QVERIFY(!simplification.level(1)->isEnabled());
        QCOMPARE(simplification.shownAt(1), 100);
        checkPageContract(*simplification.page, simplification.settings, [&] { simplification.type(2, 60); });
        QCOMPARE(simplification.stored(), "1/0.75/0.5/0.25/0.1");
        QCOMPARE(simplification.app.kernel, QStringList{"setSimplificationRatios 1/0.75/0.5/0.25/0.1"});
    }

    void storedTexts_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<Levels>("shown");
        QTest::addColumn<bool>("modified");
        QTest::addColumn<QString>("written");
        QTest::newRow("five") << "1/0.8/0.6/0.4/0.2" << Levels{80, 60, 40, 20} << false << "1/0.8/0.6/0.4/0.2";
        QTest::newRow("empty parts skipped") << "1//0.8/0.6/0.4/0.2" << Levels{80, 60, 40, 20} << false
                                             << "1//0.8/0.6/0.4/0.2";
        QTest::newRow("four parts") << "1/0.75/0.5/0.25" << Levels{75, 50, 25, 10} << true << "1/0.75/0.5/0.25/0.1";
        QTest::newRow("a list, not a text") << "1/0.75,0.5" << Levels{75, 50, 25, 10} << true
                                            << "1/0.75/0.5/0.25/0.1";
        QTest::newRow("fraction shown whole") << "1/0.75/0.333/0.25/0.1" << Levels{75, 33, 25, 10} << true
                                              << "1/0.75/0.33/0.25/0.1";
        QTest::newRow("absent") << QString() << Levels{75, 50, 25, 10} << false << QString();
    }

    void storedTexts()
    {
        QFETCH(QString, stored);
        QFETCH(Levels, shown);
        QFETCH(bool, modified);
        QFETCH(QString, written);
        SimplificationPage simplification(stored);
        QCOMPARE(simplification.shown(), shown);
        QCOMPARE(simplification.page->hasModifications(), modified);
        QVERIFY(!simplification.page->applyModifications());
        QCOMPARE(simplification.stored(), written);
        QVERIFY(!simplification.page->hasModifications());
    }

    // Finishing an edit pulls the immediate neighbours into order, one step only.
    void levelsKeepTheirOrder_data()
    {
        QTest::addColumn<int>("level");
        QTest::addColumn<int>("typed");
        QTest::addColumn<Levels>("after");
        QTest::newRow("raise level 3 above level 2") << 3 << 80 << Levels{80, 80, 25, 10};
        QTest::newRow("lower level 2 below level 4") << 2 << 10 << Levels{10, 10, 25, 10};
        QTest::newRow("raise level 5") << 5 << 60 << Levels{75, 50, 60, 60};
        QTest::newRow("lower level 4") << 4 << 5 << Levels{75, 50, 5, 5};
    }

    void levelsKeepTheirOrder()
    {
        QFETCH(int, level);
        QFETCH(int, typed);
        QFETCH(Levels, after);
        SimplificationPage simplification("1/0.75/0.5/0.25/0.1");
        QSignalSpy changed(simplification.page, SIGNAL(stateChanged()));
        simplification.type(level, typed);
        QCOMPARE(simplification.shown(), after);
        QVERIFY(changed.count() > 0);
        QVERIFY(simplification.page->hasModifications());
    }

    void withoutARunningSimplifierOrDefaults()
    {
        // The stand-alone editor has no simplifier: the ratios are still saved.
        SimplificationPage standAlone("1/0.75/0.5/0.25/0.1", Registered, Host::StandAlone);
        standAlone.type(3, 40);
        QVERIFY(!standAlone.page->applyModifications());
        QCOMPARE(standAlone.stored(), "1/0.75/0.4/0.25/0.1");
        QVERIFY(standAlone.app.kernel.isEmpty());

        // No defaults registered: the form's levels stand, nothing is pending or resettable.
        ZelControlCenter::ClearSettingsValues();
        SimplificationPage bare(QString(), {});
        QCOMPARE(bare.shown(), (Levels{75, 50, 25, 1}));
        QVERIFY(!bare.page->hasModifications());
        QVERIFY(!bare.page->canResetContent());
    }
};

QTEST_MAIN(TestSimplificationPanel)
#include "tst_simplificationpanel.moc"
