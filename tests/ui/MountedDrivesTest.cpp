#include "HalvaneTest.h"

#include "ui/MountedDrives.h"

#include <QDir>
#include <QTemporaryDir>

class MountedDrivesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        device(u"sdb"_qs, "1\n");
        QVERIFY(QDir(m_kernel.path()).mkpath(u"devices/sdb/sdb1"_qs));
        QVERIFY(QFile::link(m_kernel.filePath(u"devices/sdb/sdb1"_qs), m_kernel.filePath(u"sdb1"_qs)));
        device(u"sda"_qs, "0\n");
    }

    void driveIsToldByItsDevice_data() {
        QTest::addColumn<QString>("root");
        QTest::addColumn<QString>("device");
        QTest::addColumn<QString>("fileSystem");
        QTest::addColumn<QString>("drive");
        QTest::newRow("a stick as a whole") << u"/mnt/a"_qs << u"/dev/sdb"_qs << u"vfat"_qs << u"/mnt/a"_qs;
        QTest::newRow("a partition of a stick") << u"/mnt/b"_qs << u"/dev/sdb1"_qs << u"vfat"_qs << u"/mnt/b"_qs;
        QTest::newRow("a fixed disk") << u"/"_qs << u"/dev/sda"_qs << u"ext4"_qs << QString();
        QTest::newRow("a disk on a cable")
            << u"/media/office/DISK"_qs << u"/dev/sda"_qs << u"exfat"_qs << u"/media/office/DISK"_qs;
        QTest::newRow("a disc") << u"/mnt/c"_qs << u"/dev/sr0"_qs << u"iso9660"_qs << u"/mnt/c (disc)"_qs;
        QTest::newRow("a disc of another form") << u"/mnt/d"_qs << u"/dev/sdz"_qs << u"udf"_qs << u"/mnt/d (disc)"_qs;
        QTest::newRow("a device that is gone") << u"/mnt/e"_qs << u"/dev/sdq"_qs << u"vfat"_qs << QString();
        QTest::newRow("no device at all") << u"/media/x"_qs << u"tmpfs"_qs << u"tmpfs"_qs << QString();
    }
    void driveIsToldByItsDevice() {
        QFETCH(QString, root);
        QFETCH(QString, device);
        QFETCH(QString, fileSystem);
        const auto drive = removableDrive({root, device, fileSystem}, m_kernel.path());
        QTEST(drive ? drive->root + (drive->isDisc ? u" (disc)"_qs : QString()) : QString(), "drive");
    }

    void thisMachineIsAsked() {
        for (const RemovableDrive& drive : mountedRemovableDrives()) QVERIFY(QDir(drive.root).exists());
    }

private:
    void device(const QString& name, const QByteArray& removable) {
        QVERIFY(QDir(m_kernel.path()).mkpath(u"devices/"_qs + name));
        QVERIFY(QFile::link(m_kernel.filePath(u"devices/"_qs + name), m_kernel.filePath(name)));
        QFile file(m_kernel.filePath(u"devices/"_qs + name + u"/removable"_qs));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(removable);
    }

    QTemporaryDir m_kernel;
};

HALVANE_TEST(MountedDrivesTest)
#include "MountedDrivesTest.moc"
