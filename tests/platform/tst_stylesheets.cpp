// The kernel's style sheet lookup against the sheets each layer compiles into the library.
#include "ZelAboutSettingsPanel.h"
#include "ZelCCActionItem.h"
#include "ZelControlCenter.h"
#include "ZelRendererSettingsPanel.h"
#include "ZelSimplificationSettingsPanel.h"
#include "kqDMIApplication.h"

#include <QTest>

Q_DECLARE_METATYPE(const QMetaObject*)

class TestStyleSheets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    // Named by the class itself, so that renaming a widget without its sheet shows here.
    void everyStyledWidgetFindsItsSheet_data()
    {
        QTest::addColumn<const QMetaObject*>("widget");
        for (const QMetaObject* widget :
             {&zel::ZelControlCenter::staticMetaObject, &zel::ZelCCActionItem::staticMetaObject,
              &zel::ZelAboutSettingsPanel::staticMetaObject, &zel::ZelSimplificationSettingsPanel::staticMetaObject,
              &zel::ZelRendererSettingsPanel::staticMetaObject})
            QTest::newRow(widget->className()) << widget;
    }

    void everyStyledWidgetFindsItsSheet()
    {
        QFETCH(const QMetaObject*, widget);
        const QString name = QString::fromLatin1(widget->className()).section(QLatin1String("::"), -1);
        QVERIFY(!zel::kqDMIApplication::GetStylesheet(name).isEmpty());
    }

    void theKernelKeepsItsOwnSheet()
    {
        QVERIFY(!zel::kqDMIApplication::GetStylesheet(QStringLiteral("kqMessageBox")).isEmpty());
    }
};

QTEST_MAIN(TestStyleSheets)
#include "tst_stylesheets.moc"
