#include "HalvaneTest.h"

#include "base/Drives.h"
#include "base/basCommon.h"

class DrivesTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() {
        removableDrives() = [] { return QList<RemovableDrive>(); };
    }

    void noDriveIsFound() {
        for (int type = 0; type <= 6; ++type) QCOMPARE(FindDriveByType(type), QString());
    }

    void theFirstOfItsKindIsFound() {
        removableDrives() = [] {
            return QList<RemovableDrive>{
                {u"/disc"_qs, true}, {u"/stick"_qs, false}, {u"/other"_qs, false}, {u"/disc2"_qs, true}};
        };
        QCOMPARE(FindDriveByType(2), u"/stick"_qs);
        QCOMPARE(FindDriveByType(5), u"/disc"_qs);
    }

    void anyRemovableDriveTakesThePlaceOfOneThatIsNotThere() {
        removableDrives() = [] { return QList<RemovableDrive>{{u"/stick"_qs, false}}; };
        QCOMPARE(FindDriveByType(5), u"/stick"_qs);
        removableDrives() = [] { return QList<RemovableDrive>{{u"/disc"_qs, true}}; };
        QCOMPARE(FindDriveByType(2), u"/disc"_qs);
    }

    void unknownAndFixedKindsNeverMatch() {
        removableDrives() = [] { return QList<RemovableDrive>{{u"/stick"_qs, false}}; };
        for (const int type : {0, 1, 3, 4, 6}) QCOMPARE(FindDriveByType(type), QString());
    }
};

HALVANE_TEST(DrivesTest)
#include "DrivesTest.moc"
