// What differs from the defaults and finding a setting, in the stand-alone window with
// every page, on a real Settings.ini, driven through the window as a user would.

#include "SettingsFiles.h"
#include "EditorWindow.h"
#include "TestHome.h"
#include "TestInput.h"
#include "ZelAboutSettingsPanel.h"
#include "ZelControlCenter.h"
#include "ZelControlCenterStandAloneWidget.h"
#include "ZelGeneralSettingsPanel.h"
#include "ZelRendererSettingsPanel.h"
#include "ZelSettingsApplication.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QTranslator>

#include <memory>

using namespace zel;

class tst_marksandsearch : public QObject
{
    Q_OBJECT

    TestHome m_home;
    QTranslator m_french;
    EditorWindow m_editor;
    std::unique_ptr<ZelControlCenterStandAloneWidget>& m_window = m_editor.window;

    template<typename T = QWidget>
    T* child(const char* name) const
    {
        return m_window->findChild<T*>(QLatin1String(name));
    }
    static bool differs(const QWidget* widget) { return widget->property("differsFromDefault").toBool(); }
    static bool found(const QWidget* widget) { return widget->property("searchMatch").toBool(); }
    ZelSettingsPanel* general() const { return m_window->findChild<ZelGeneralSettingsPanel*>(); }
    ZelSettingsPanel* display() const { return m_window->findChild<ZelRendererSettingsPanel*>(); }

    void open(const QByteArray& stored, bool french = false)
    {
        QVERIFY(writeBytes(m_home.configPath() + "/Settings.ini", stored));
        if (french) {
            QVERIFY(m_french.load(ZEL_TRANSLATIONS_DIR "/Torvane_fr.qm"));
            QCoreApplication::installTranslator(&m_french);
        }
        m_editor.open(m_home.configPath());
    }

    void type(const QString& text)
    {
        for (const QChar character : text)
            QTest::keyClick(m_window->windowHandle(), character.toLatin1());
    }

private Q_SLOTS:
    void cleanup()
    {
        m_editor.close();
        QCoreApplication::removeTranslator(&m_french);
    }

    void differingFieldsAreMarkedAndResetOneByOne()
    {
        open("settingsVersion=2\nengine=deferred\n[DBCache]\ncacheSize=2048\n");
        auto* cacheSize = child<QAbstractSpinBox>("databaseSpinBox");
        auto* ssao = child<QCheckBox>("deferredSSAOCheckBox");
        QVERIFY(differs(cacheSize));
        QVERIFY(!differs(ssao));
        QVERIFY(differs(general()->getActionWidget()));
        QVERIFY(!differs(display()->getActionWidget()));
        child<QScrollArea>("settingsScrollArea")->ensureWidgetVisible(cacheSize);

        // Hovering the marker tells the default, in the page's own words.
        const QWidget* marker = general()->findChild<QWidget*>("fieldMarker");
        QVERIFY(marker && marker->isVisible());
        // The first move only enters the window; the tool tip follows a move inside it.
        const QPoint at = marker->mapTo(m_window.get(), marker->rect().center());
        QTest::mouseMove(m_window->windowHandle(), at - QPoint(3, 0));
        QTest::mouseMove(m_window->windowHandle(), at);
        QTRY_COMPARE(QToolTip::text(), "Default: 4096" + cacheSize->property("suffix").toString());

        // An edit is marked before Apply, on the field and on its page's button.
        clickIndicator(ssao);
        QVERIFY(differs(ssao));
        QVERIFY(differs(display()->getActionWidget()));
        child<QScrollArea>("settingsScrollArea")->ensureWidgetVisible(cacheSize);

        // The cache size alone goes back to its default, through its context menu.
        QTimer::singleShot(0, this, [] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QAction* reset = menu ? menu->findChild<QAction*>("resetFieldAction") : nullptr;
            if (reset)
                QTest::mouseClick(menu->windowHandle(), Qt::LeftButton, {}, menu->actionGeometry(reset).center());
        });
        QTest::mouseClick(m_window->windowHandle(), Qt::RightButton, {},
                          cacheSize->mapTo(m_window.get(), cacheSize->rect().center()));
        QTRY_COMPARE(cacheSize->property("value").toInt(), 4096);
        QVERIFY(!differs(cacheSize));
        QVERIFY(!marker->isVisible());
        QVERIFY(differs(ssao));
        QVERIFY(m_window->controlCenter()->hasModifications());

        // The page holding the focus is the one highlighted in the menu column, also while
        // the page above it still fills the top of the drawer.
        // The offscreen platform does not give the window back its activation after a popup.
        m_window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
        child<QScrollArea>("settingsScrollArea")->ensureWidgetVisible(ssao);
        click(ssao);
        QVERIFY(display()->getActionWidget()->isChecked());
        for (int tab = 0; tab < 20 && !general()->isAncestorOf(QApplication::focusWidget()); ++tab)
            QTest::keyClick(m_window->windowHandle(), Qt::Key_Tab);
        QVERIFY(general()->isAncestorOf(QApplication::focusWidget()));
        QVERIFY(general()->getActionWidget()->isChecked());

        // Reset takes every page back: nothing is marked any more.
        click(child<QPushButton>("resetButton"));
        QVERIFY(!differs(ssao));
        QVERIFY(!differs(display()->getActionWidget()));
    }

    void everyMarkerTellsItsDefault()
    {
        open("settingsVersion=2\nengine=deferred\n[DBCache]\ncacheSize=2048\n[Tesselation]\n"
             "TesselationQualitySet=true\nTesselationIsHighQuality=true\nTesselationMaxFaceAngleSet=true\n");
        QStringList defaults;
        for (QWidget* marker : m_window->findChildren<QWidget*>("fieldMarker")) {
            if (!marker->isVisibleTo(m_window.get()))
                continue;
            // Hovering is driven through the window above; here every marker is asked.
            const QPoint middle = marker->rect().center();
            QHelpEvent hover(QEvent::ToolTip, middle, marker->mapToGlobal(middle));
            QApplication::sendEvent(marker, &hover);
            defaults.append(QToolTip::text());
            QToolTip::hideText();
        }
        // The cache size, the quality choice and the angle limit, each with its default.
        QVERIFY2(defaults.size() >= 3, qPrintable(defaults.join('|')));
        for (const QString& text : defaults)
            QVERIFY2(QRegularExpression("^Default: \\S").match(text).hasMatch(), qPrintable(defaults.join('|')));
    }

    void searchFindsByLabelAndKey_data()
    {
        QTest::addColumn<bool>("french");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("into");
        QTest::newRow("English label") << false << "cache size" << "databaseSpinBox" << int(Qt::Key_Return);
        QTest::newRow("French label") << true << "taille du cache" << "databaseSpinBox" << int(Qt::Key_Enter);
        QTest::newRow("key") << false << "useSSAO" << "deferredSSAOCheckBox" << int(Qt::Key_Down);
        QTest::newRow("French label, no accents") << true << "memoire gpu" << "maxGPUSPinBox" << int(Qt::Key_Return);
    }

    void searchFindsByLabelAndKey()
    {
        QFETCH(bool, french);
        QFETCH(QString, typed);
        QFETCH(QString, field);
        open("settingsVersion=2\nengine=deferred\n", french);

        // Ctrl+F from a page's field puts the keyboard in the search field.
        child("maxTrianglesSpinBox")->setFocus();
        QTest::keyClick(m_window->windowHandle(), Qt::Key_F, Qt::ControlModifier);
        auto* search = child<QLineEdit>("settingsSearch");
        QVERIFY(search->hasFocus());
        type(typed);
        QWidget* match = child(qPrintable(field));
        QVERIFY(found(match));
        QVERIFY(!found(child("maxTrianglesSpinBox")));
        QVERIFY(child("noSettingMatches")->isHidden());
        // Pages without a match fold away; the drawer shows the first match.
        const bool onGeneral = general()->isAncestorOf(match);
        QCOMPARE(general()->isVisible(), onGeneral);
        QCOMPARE(display()->isVisible(), !onGeneral);
        QVERIFY(match->visibleRegion().boundingRect().height() == match->height());
        // The page left keeps its own height, however much room the drawer has below it.
        QWidget* page = onGeneral ? general() : display();
        const auto natural = [page] {
            return page->hasHeightForWidth() ? page->heightForWidth(page->width()) : page->sizeHint().height();
        };
        QTRY_COMPARE(page->height(), natural());

        // Return, Enter or Down take the keyboard to the match; Ctrl+F brings it back.
        QFETCH(int, into);
        QTest::keyClick(m_window->windowHandle(), Qt::Key(into));
        QVERIFY(match->hasFocus());
        QTest::keyClick(m_window->windowHandle(), Qt::Key_F, Qt::ControlModifier);
        QVERIFY(search->hasFocus());

        // Escape clears the search: every page is back, nothing highlighted.
        QTest::keyClick(m_window->windowHandle(), Qt::Key_Escape);
        QCOMPARE(search->text(), QString());
        QVERIFY(!found(match));
        QVERIFY(general()->isVisible() && display()->isVisible());
    }

    void searchWithoutMatchSaysSo()
    {
        open("settingsVersion=2\nengine=deferred\n");
        QTest::keyClick(m_window->windowHandle(), Qt::Key_F, Qt::ControlModifier);
        type("xyzzy");
        QVERIFY(child("noSettingMatches")->isVisible());
        QCOMPARE(child<QLabel>("noSettingMatches")->text(), "No setting matches");
        QVERIFY(!general()->isVisible() && !display()->isVisible());

        // A setting its page hides for now is named with where it shows.
        child<QLineEdit>("settingsSearch")->clear();
        type("processing power");
        QVERIFY(child("noSettingMatches")->isVisible());
        QCOMPARE(child<QLabel>("noSettingMatches")->text(),
                 "No setting in sight matches. The Display page shows \"Processing power\" only after another "
                 "choice on that page.");
        child<QLineEdit>("settingsSearch")->clear();
        type("xyzzy");

        // The field's clear button, there once something is typed, ends the search too.
        auto* clear = child<QLineEdit>("settingsSearch")->findChild<QToolButton*>();
        QVERIFY(clear);
        QTRY_VERIFY(clear->isVisible());
        click(clear);
        QCOMPARE(child<QLineEdit>("settingsSearch")->text(), QString());
        QVERIFY(general()->isVisible() && display()->isVisible());
    }

    // The highlight is the field's alone: its context menu looks as it always does.
    void theHighlightStaysOnItsField()
    {
        open("settingsVersion=2\nengine=deferred\n");
        QTest::keyClick(m_window->windowHandle(), Qt::Key_F, Qt::ControlModifier);
        type("cache size");
        auto* cacheSize = child<QAbstractSpinBox>("databaseSpinBox");
        const QColor highlight(255, 179, 0);
        QCOMPARE(cacheSize->grab().toImage().pixelColor(0, cacheSize->height() / 2), highlight);

        QColor menuEdge;
        QTimer::singleShot(0, this, [&menuEdge] {
            if (QWidget* menu = QApplication::activePopupWidget()) {
                menuEdge = menu->grab().toImage().pixelColor(0, menu->height() / 2);
                menu->close();
            }
        });
        QTest::mouseClick(m_window->windowHandle(), Qt::RightButton, {},
                          cacheSize->mapTo(m_window.get(), cacheSize->rect().center()));
        QVERIFY(menuEdge.isValid());
        QVERIFY(menuEdge != highlight);
    }

    // The button of a page the search folded away ends the search and brings that page.
    void aFoldedPageButtonEndsTheSearch()
    {
        open("settingsVersion=2\nengine=deferred\n");
        QTest::keyClick(m_window->windowHandle(), Qt::Key_F, Qt::ControlModifier);
        type("cache");
        auto* about = m_window->findChild<ZelAboutSettingsPanel*>();
        QVERIFY(!about->isVisible());

        click(about->getActionWidget());
        QCOMPARE(child<QLineEdit>("settingsSearch")->text(), QString());
        QVERIFY(about->isVisible() && display()->isVisible());
        QTRY_VERIFY(!about->visibleRegion().isEmpty());
    }
};

QTEST_MAIN(tst_marksandsearch)
#include "tst_marksandsearch.moc"
