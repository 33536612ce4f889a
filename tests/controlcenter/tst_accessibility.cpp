// The stand-alone window with every page, on a Settings.ini for each engine and language,
// as a user meets it: every page whole, every field named, every text readable, the
// keyboard focus in sight, the wheel scrolling the drawer past every field the user is
// not editing.

#include "SettingsFiles.h"
#include "EditorWindow.h"
#include "TestHome.h"
#include "TestInput.h"
#include "ZelControlCenter.h"
#include "ZelControlCenterStandAloneWidget.h"
#include "ZelFieldMarks.h"
#include "ZelSettingsApplication.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTranslator>

#include <cmath>
#include <map>
#include <memory>

using namespace zel;

// WCAG's contrast ratio of two colours.
static double contrast(const QColor& a, const QColor& b)
{
    const auto luminance = [](const QColor& c) {
        const auto linear = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
        return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
    };
    const double first = luminance(a), second = luminance(b);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

class tst_accessibility : public QObject
{
    Q_OBJECT

    TestHome m_home;
    QTranslator m_translator;
    EditorWindow m_editor;
    std::unique_ptr<ZelControlCenterStandAloneWidget>& m_window = m_editor.window;

    // What the user can reach: shown and enabled.
    QList<QWidget*> reachable() const
    {
        QList<QWidget*> widgets = m_window->findChildren<QWidget*>();
        widgets.removeIf([](const QWidget* w) { return !w->isVisible() || !w->isEnabled(); });
        return widgets;
    }

    // The colour most pixels of the widget have as it is drawn, on what is under it. A
    // scroll area's content is drawn whole, so that text scrolled out of sight counts too.
    QColor background(QWidget* widget) const
    {
        QWidget* canvas = m_window.get();
        for (QWidget* w = widget; w->parentWidget(); w = w->parentWidget())
            canvas = qobject_cast<QScrollArea*>(w->parentWidget()->parentWidget()) ? w : canvas;
        QRect area = widget->rect();
        for (QWidget* w = widget; w != canvas; w = w->parentWidget())
            area = area.translated(w->pos()) & w->parentWidget()->rect();
        const QImage image = canvas->grab(area).toImage();
        std::map<QRgb, int> counts;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                ++counts[image.pixel(x, y)];
        return QColor(std::max_element(counts.begin(), counts.end(), [](auto a, auto b) { return a.second < b.second; })
                          ->first);
    }

    // Why `widget`, now holding the focus, does not show it against `without`, its look
    // before: empty when enough of the pixels that changed stand out from the ground
    // around it by 3:1, as any part of a control must: a fifth of them, or as many as a
    // one-pixel line around the widget has.
    QString focusMarkProblem(QWidget* widget, const QImage& without) const
    {
        const QImage with = widget->grab().toImage();
        const QColor ground = background(widget->parentWidget());
        int changed = 0;
        int standingOut = 0;
        std::map<QRgb, int> faint;
        for (int y = 0; y < with.height(); ++y) {
            for (int x = 0; x < with.width(); ++x) {
                const QRgb pixel = with.pixel(x, y);
                if (pixel == without.pixel(x, y))
                    continue;
                ++changed;
                if (contrast(QColor(pixel), ground) >= 3.0)
                    ++standingOut;
                else
                    ++faint[pixel];
            }
        }
        if (changed == 0)
            return widget->objectName() + ": no mark";
        if (standingOut * 5 >= changed || standingOut >= 2 * (widget->width() + widget->height()))
            return QString();
        const QRgb most =
            std::max_element(faint.begin(), faint.end(), [](auto a, auto b) { return a.second < b.second; })->first;
        return QStringLiteral("%1: %2 of %3 changed pixels stand out, most are %4 on %5")
            .arg(widget->objectName())
            .arg(standingOut)
            .arg(changed)
            .arg(QColor(most).name(), ground.name());
    }

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<QByteArray>("engine");
        QTest::addColumn<QByteArray>("language");
        for (const char* language : {"en", "fr"}) {
            QTest::addRow("GPU %s", language) << QByteArray("deferred") << QByteArray(language);
            QTest::addRow("software %s", language) << QByteArray("software") << QByteArray(language);
        }
    }

    void init()
    {
        QFETCH_GLOBAL(QByteArray, engine);
        QFETCH_GLOBAL(QByteArray, language);
        QVERIFY(writeBytes(m_home.configPath() + "/Settings.ini",
                           "settingsVersion=2\nengine=" + engine + "\nlanguage=" + language + '\n'));
        QVERIFY(m_translator.load(ZEL_TRANSLATIONS_DIR "/Torvane_" + language + ".qm"));
        QCoreApplication::installTranslator(&m_translator);
        m_editor.open(m_home.configPath());
    }

    void cleanup()
    {
        m_editor.close();
        QCoreApplication::removeTranslator(&m_translator);
    }

    // Every field and text of the drawer lies within its width, in the window's first
    // size and at its smallest: the drawer only scrolls up and down.
    void pagesFitTheDrawer()
    {
        auto* drawer = m_window->findChild<QScrollArea*>("settingsScrollArea");
        for (const QSize size : {m_window->size(), m_window->minimumSize()}) {
            m_window->resize(size);
            QTRY_COMPARE(m_window->size(), size);
            QTRY_VERIFY(!m_window->controlCenter()->isSettingsOpen() || drawer->width() > 0);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
            const QRect inSight = drawer->viewport()->rect();
            for (const QWidget* w : drawer->widget()->findChildren<QWidget*>()) {
                if (!w->isVisible())
                    continue;
                const QRect shown(w->mapTo(drawer->viewport(), QPoint()), w->size());
                QVERIFY2(shown.left() >= inSight.left() && shown.right() <= inSight.right(),
                         qPrintable(QStringLiteral("%1 at %2 wide %3: %4 to %5 of %6")
                                        .arg(w->objectName(), QString::number(size.width()))
                                        .arg(w->width())
                                        .arg(shown.left())
                                        .arg(shown.right())
                                        .arg(inSight.width())));
            }
        }
    }

    // Every control a screen reader reaches has a name it can say, in words, and a field
    // with a label is named by it. A drop-down names its choice instead, its label being
    // its relation, as Qt does on Linux.
    void everyControlIsNamed()
    {
        const QRegularExpression words("\\p{L}.*\\p{L}");
        int controls = 0;
        for (QWidget* w : reachable()) {
            if (!qobject_cast<QAbstractButton*>(w) && !(w->focusPolicy() & Qt::TabFocus))
                continue;
            // A spin box's own line edit is part of the spin box.
            if (w->parentWidget()->inherits("QAbstractSpinBox") || w->inherits("QScrollArea"))
                continue;
            ++controls;
            const QString name = QAccessible::queryAccessibleInterface(w)->text(QAccessible::Name);
            QVERIFY2(words.match(name).hasMatch(), qPrintable(w->objectName() + ": " + name));
            const QLabel* label = qobject_cast<const QLabel*>(ZelFieldMarks::labelOf(w));
            if (label && !w->inherits("QComboBox"))
                QCOMPARE(name, label->text().remove('&').remove(QRegularExpression("\\s*:$")));
        }
        QVERIFY(controls > 10);
    }

    void everyTextIsReadable()
    {
        for (QWidget* w : reachable()) {
            // Labels, buttons and line edits (a spin box's too) say "text", a combo box "currentText".
            const QString shown = w->property(qobject_cast<QComboBox*>(w) ? "currentText" : "text").toString();
            if (shown.isEmpty() || qobject_cast<QAbstractSpinBox*>(w))
                continue;
            const QColor text = w->palette().color(w->foregroundRole()), ground = background(w);
            QVERIFY2(contrast(text, ground) >= 4.5,
                     qPrintable(QStringLiteral("%1: %2 on %3").arg(shown, text.name(), ground.name())));
            // Rich text may colour its own words, links above all.
            if (!qobject_cast<QLabel*>(w) || !Qt::mightBeRichText(shown))
                continue;
            QTextDocument document;
            document.setHtml(shown);
            for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
                for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
                    const QTextCharFormat format = fragment.fragment().charFormat();
                    if (format.foreground().style() == Qt::NoBrush)
                        continue;
                    const QColor words = format.foreground().color();
                    QVERIFY2(contrast(words, ground) >= 4.5,
                             qPrintable(QStringLiteral("%1: %2 on %3")
                                            .arg(fragment.fragment().text(), words.name(), ground.name())));
                }
            }
        }
    }

    // Every stop of the Tab chain, all the way round, looks different with the focus than
    // without it: Tab never lands where the user cannot see it, on the drawer itself,
    // the placeholder beside it or a label of links before its first link.
    void everyTabStopShowsFocus()
    {
        // The notice bar too, with its close button.
        m_window->showNotice(QStringLiteral("Torvane repaired these settings."));

        QTest::keyClick(m_window->windowHandle(), Qt::Key_F, Qt::ControlModifier);
        QWidget* search = QApplication::focusWidget();
        QVERIFY(search);
        QList<QWidget*> stops{search};
        for (QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab); QApplication::focusWidget() != search;
             QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab)) {
            QVERIFY(stops.size() < 200);
            if (!stops.contains(QApplication::focusWidget()))
                stops.append(QApplication::focusWidget());
        }
        QVERIFY(stops.size() > 10);
        for (QWidget* stop : stops) {
            (stop == search ? stops.at(1) : search)->setFocus(Qt::TabFocusReason);
            const QImage without = stop->grab().toImage();
            stop->setFocus(Qt::TabFocusReason);
            const QString problem = focusMarkProblem(stop, without);
            QVERIFY2(problem.isEmpty(), qPrintable(problem));
        }
    }

    // Tab goes as the eye does: down the menu column, the drawer's header, the page list
    // (one stop, on the page in sight), Reset and Apply; then the drawer from its search
    // field down.
    void tabGoesAsTheEyeDoes()
    {
        // An edit, for Reset and Apply to take the focus.
        auto* header = m_window->findChild<QWidget*>("controlCenterButton");
        header->setFocus(Qt::TabFocusReason);
        QAbstractButton* checkedPage = nullptr;
        for (QAbstractButton* page : m_window->findChild<QWidget*>("applicationSettings")->findChildren<QAbstractButton*>())
            checkedPage = page->isChecked() ? page : checkedPage;
        QVERIFY(checkedPage);
        m_window->findChild<QAbstractSpinBox*>("maxTrianglesSpinBox")->stepBy(1);
        const QWidget* drawerButtons = m_window->findChild<QWidget*>("frame_4");
        const QList<QWidget*> stops{checkedPage,
                                    drawerButtons->findChild<QWidget*>("resetButton"),
                                    drawerButtons->findChild<QWidget*>("applyButton"),
                                    m_window->findChild<QWidget*>("settingsScrollArea"),
                                    m_window->findChild<QWidget*>("settingsSearch")};
        for (QWidget* stop : stops) {
            QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab);
            QCOMPARE(QApplication::focusWidget(), stop);
        }
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab);
        QVERIFY(m_window->findChild<QWidget*>("applicationFrame")->isAncestorOf(QApplication::focusWidget()));

        // Back from Reset, the list takes the focus on the page in sight, whichever that is.
        QScrollBar* scrollBar = m_window->findChild<QScrollArea*>("settingsScrollArea")->verticalScrollBar();
        scrollBar->setValue(scrollBar->maximum());
        QVERIFY(!checkedPage->isChecked());
        stops.at(1)->setFocus(Qt::TabFocusReason);
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Backtab, Qt::ShiftModifier);
        QVERIFY(qobject_cast<QAbstractButton*>(QApplication::focusWidget()));
        QVERIFY(qobject_cast<QAbstractButton*>(QApplication::focusWidget())->isChecked());
    }

    // Whichever way Tab comes into the drawer, from the page buttons or within it, the
    // field it reaches is in sight, the drawer scrolled to the bottom first.
    void tabbedFieldsAreInSight()
    {
        auto* drawer = m_window->findChild<QScrollArea*>("settingsScrollArea");
        const QWidget* content = drawer->widget();
        QScrollBar* scrollBar = drawer->verticalScrollBar();
        QTRY_VERIFY(scrollBar->maximum() > 0);
        scrollBar->setValue(scrollBar->maximum());
        QTest::keyClick(m_window->windowHandle(), Qt::Key_F, Qt::ControlModifier);
        QWidget* search = QApplication::focusWidget();
        QVERIFY(search);
        int fields = 0;
        for (QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab); QApplication::focusWidget() != search;
             QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab)) {
            const QWidget* focused = QApplication::focusWidget();
            QVERIFY(focused && fields < 200);
            if (!content->isAncestorOf(focused))
                continue;
            ++fields;
            const QRect shown(focused->mapTo(drawer->viewport(), QPoint()), focused->size());
            QVERIFY2(drawer->viewport()->rect().contains(shown), qPrintable(focused->objectName()));
        }
        QVERIFY(fields > 10);

        // A press on a field the drawer's edge cuts in half takes it where it is: nothing
        // moves under the pointer before the release.
        auto* cut = m_window->findChild<QWidget*>("databaseSpinBox");
        scrollBar->setValue(cut->mapTo(content, QPoint()).y() + cut->height() / 2 - drawer->viewport()->height());
        const int scrolled = scrollBar->value();
        QTest::keyClick(m_window->windowHandle(), Qt::Key_F, Qt::ControlModifier);
        click(cut, QPoint(cut->width() / 2, cut->height() / 4));
        QVERIFY(cut->hasFocus());
        QCOMPARE(scrollBar->value(), scrolled);
    }

    // A wheel turned over a field while scrolling the drawer scrolls on, whatever the
    // field; once the user has tabbed into a combo box or a slider, it takes the wheel.
    void theWheelScrollsPastFields()
    {
        auto* drawer = m_window->findChild<QScrollArea*>("settingsScrollArea");
        const QScrollBar* scrollBar = drawer->verticalScrollBar();
        int fields = 0;
        for (QWidget* field : reachable()) {
            if (!takesWheel(field))
                continue;
            ++fields;
            drawer->ensureWidgetVisible(field);
            const QVariant before = shownValue(field);
            const int scrolled = scrollBar->value();
            turnWheelDown(field);
            QVERIFY2(shownValue(field) == before, qPrintable(field->objectName()));
            QVERIFY2(scrollBar->value() > scrolled || scrolled == scrollBar->maximum(),
                     qPrintable(field->objectName()));
        }
        QVERIFY(fields >= 5);

        QFETCH_GLOBAL(QByteArray, engine);
        auto* chosen = m_window->findChild<QWidget*>(engine == "software" ? "qualitySlider" : "sceneUnitComboBox");
        drawer->ensureWidgetVisible(chosen);
        tabTo(chosen);
        QVERIFY(chosen->hasFocus());
        const QVariant before = shownValue(chosen);
        const int scrolled = scrollBar->value();
        turnWheelDown(chosen);
        QVERIFY(shownValue(chosen) != before);
        QCOMPARE(scrollBar->value(), scrolled);

        // Tabbed away from, it leaves the wheel to the drawer again.
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab);
        QVERIFY(!chosen->hasFocus());
        drawer->ensureWidgetVisible(chosen);
        const QVariant edited = shownValue(chosen);
        const int tabbed = scrollBar->value();
        turnWheelDown(chosen);
        QCOMPARE(shownValue(chosen), edited);
        QVERIFY(scrollBar->value() > tabbed || tabbed == scrollBar->maximum());
    }

private:
    void tabTo(const QWidget* field) const
    {
        for (int tab = 0; tab < 200 && !field->hasFocus(); ++tab)
            QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab);
    }

    static bool takesWheel(const QWidget* w)
    {
        // A spin box's own line edit is part of the spin box; scroll bars are for the wheel.
        return (w->inherits("QAbstractSlider") && !w->inherits("QScrollBar")) || w->inherits("QComboBox")
            || w->inherits("QAbstractSpinBox");
    }

    static QVariant shownValue(const QWidget* field)
    {
        return field->property(field->inherits("QComboBox") ? "currentIndex" : "value");
    }
};

QTEST_MAIN(tst_accessibility)
#include "tst_accessibility.moc"
