#include "ZelControlCenterVersion.h"

#include <QByteArray>
#include <QTest>

using ZelControlCenter::Version;

class ControlCenterVersionTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textsAgreeWithNumbers_data();
    void textsAgreeWithNumbers();
    void dateForm();
};

void ControlCenterVersionTest::textsAgreeWithNumbers_data()
{
    QTest::addColumn<bool>("alternative");
    QTest::newRow("first text") << false;
    QTest::newRow("second text") << true;
}

void ControlCenterVersionTest::textsAgreeWithNumbers()
{
    QFETCH(bool, alternative);
    const QByteArray majorMinor = QByteArray::number(Version::GetMajor()) + '.' + QByteArray::number(Version::GetMinor());
    const QByteArray release = majorMinor + '.' + QByteArray::number(Version::GetRelease());
    const QByteArray revision = release + '.' + QByteArray::number(Version::GetRevision());

    QCOMPARE(QByteArray(Version::GetDescStringMajorMinor(alternative)), majorMinor);
    QCOMPARE(QByteArray(Version::GetDescStringMajorMinorRelease(alternative)), release);
    QCOMPARE(QByteArray(Version::GetDescStringMajorMinorReleaseRevision(alternative)), revision);
    QCOMPARE(revision, QByteArray("1.1.0.85"));
}

void ControlCenterVersionTest::dateForm()
{
    // The month is not zero-padded.
    const QByteArray expected = QByteArray(Version::GetDescStringMajorMinorReleaseRevision(false)) + ' '
        + QByteArray::number(Version::GetYear()) + '-' + QByteArray::number(Version::GetMonth());
    QCOMPARE(QByteArray(Version::GetDescStringMajorMinorReleaseRevisionDate()), expected);
    QCOMPARE(expected, QByteArray("1.1.0.85 2024-1"));
}

QTEST_APPLESS_MAIN(ControlCenterVersionTest)
#include "tst_controlcenterversion.moc"
