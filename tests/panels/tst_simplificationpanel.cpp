#include "PageContract.h"
#include "TestHome.h"
#include "ZelSettingsKeys.h"
#include "ZelSimplificationSettingsPanel.h"

#include <QDoubleSpinBox>

using zel::ZelSimplificationSettingsPanel;
namespace Keys = zel::SettingsKeys;
using Levels = QList<int>;

namespace {

// The Simplification page over `stored` ratios (none when null).
struct SimplificationPage : PageWorld {
    explicit SimplificationPage(const QString& stored)
        : PageWorld(stored.isNull() ? Values() : Values{{Keys::SimplificationRatios, stored}},
                    {{Keys::SimplificationRatios, "1/0.75/0.5/0.25/0.1"}})
    {
    }
    QDoubleSpinBox* level(int n) const { return widget<QDoubleSpinBox>(qPrintable(QStringLiteral("ratio%1").arg(n))); }
    // Levels 2 to 5, as shown.
    Levels shown() const
    {
        return {int(level(2)->value()), int(level(3)->value()), int(level(4)->value()), int(level(5)->value())};
    }

    ZelSimplificationSettingsPanel* page = open(new ZelSimplificationSettingsPanel(&app, settings));
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
        // The first level is the model itself.
        QVERIFY(!simplification.level(1)->isEnabled());
        QCOMPARE(simplification.level(1)->value(), 100);
        checkPageContract(simplification, {"ratio2=60"});
        QCOMPARE(simplification.app.kernel, QStringList{"setSimplificationRatios 1/0.75/0.5/0.25/0.1"});
    }

    void storedTexts_data()
    {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<Levels>("shown");
        QTest::addColumn<bool>("modified");
        QTest::addColumn<QString>("written");
        QTest::newRow("empty parts skipped") << "1//0.8/0.6/0.4/0.2" << Levels{80, 60, 40, 20} << false
                                             << "1//0.8/0.6/0.4/0.2";
        QTest::newRow("four parts") << "1/0.75/0.5/0.25" << Levels{75, 50, 25, 10} << true << "1/0.75/0.5/0.25/0.1";
        QTest::newRow("a list, not a text") << "1/0.75,0.5" << Levels{75, 50, 25, 10} << true
                                            << "1/0.75/0.5/0.25/0.1";
        QTest::newRow("fraction shown whole") << "1/0.75/0.333/0.25/0.1" << Levels{75, 33, 25, 10} << true
                                              << "1/0.75/0.33/0.25/0.1";
        QTest::newRow("absent") << QString() << Levels{75, 50, 25, 10} << false << QString();
    }

    // Apply writes only what is no longer what the file holds.
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
        QCOMPARE(simplification.settings.value(Keys::SimplificationRatios).toString(), written);
        QVERIFY(!simplification.page->hasModifications());
    }

    // Finishing an edit pulls the immediate neighbours into order, one step only.
    void levelsKeepTheirOrder_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<Levels>("after");
        QTest::newRow("raise level 3 above level 2") << "ratio3=80" << Levels{80, 80, 25, 10};
        QTest::newRow("lower level 2 below level 4") << "ratio2=10" << Levels{10, 10, 25, 10};
        QTest::newRow("raise level 5") << "ratio5=60" << Levels{75, 50, 60, 60};
        QTest::newRow("lower level 4") << "ratio4=5" << Levels{75, 50, 5, 5};
    }

    void levelsKeepTheirOrder()
    {
        QFETCH(QString, typed);
        QFETCH(Levels, after);
        SimplificationPage simplification("1/0.75/0.5/0.25/0.1");
        simplification.edit({typed});
        QCOMPARE(simplification.shown(), after);
    }
};

QTEST_MAIN(TestSimplificationPanel)
#include "tst_simplificationpanel.moc"
