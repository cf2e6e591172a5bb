#include "Office.h"

#include "StepFailure.h"
#include "base/clsProfile.h"
#include "operations/DatabaseCreation.h"

#include <QDir>
#include <QFile>

namespace {

TestDatabase::Contents deliveredOn(Provider provider) {
    qputenv("HALVANE_TEST_PROVIDER", provider == Provider::PostgreSQL ? "PostgreSQL" : "SQLite");
    return TestDatabase::Contents::Delivered;
}

constexpr qint64 largestDisk = 64 << 20;

QString fillerOf(const QString& folder) { return QDir(folder).filePath(u"filler"_qs); }

} // namespace

Office::Office(Provider provider) : m_database(deliveredOn(provider)) {
    m_database.writeProfile(u"[Log]\r\nPath=log\r\n[Backup]\r\nAuto=0\r\n"
                            "[Image]\r\nPath=image\r\nType=png\r\n[Text]\r\nPath=text\r\nType=txt\r\n"_qs);
}

QString Office::iniFile() const { return QDir(folder()).filePath(u"Halvane.ini"_qs); }

void Office::loadSample() {
    DatabaseCreation::loadSample(*m_database.another());
    DatabaseCreation::writeSampleHelp(clsProfile(iniFile()));
}

void Office::execute(const QString& statement) { m_database.another()->execute(statement); }

CutLine& Office::line() {
    if (!TestDatabase::isPostgres()) throw StepFailure{u"a file"_qs, u"a database on a server"_qs};
    if (!m_line) {
        m_line = std::make_unique<CutLine>(m_database.settings().path + u"/.s.PGSQL.5432"_qs);
        clsProfile(iniFile()).SaveValue(u"DB"_qs, u"Path"_qs, m_line->address());
    }
    return *m_line;
}

void Office::fillDisk() {
    QFile filler(fillerOf(folder()));
    if (!filler.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        throw StepFailure{filler.errorString(), u"a file that fills the disk"_qs};
    for (qsizetype piece = 1 << 16; piece > 0;) {
        if (filler.write(QByteArray(piece, ' ')) != piece) piece /= 2;
        if (filler.size() <= largestDisk) continue;
        filler.remove();
        throw StepFailure{u"a large disk"_qs, u"a small disk of the test's own"_qs};
    }
}

void Office::freeDisk() { QFile::remove(fillerOf(folder())); }

QString Office::scalar(const QString& select) { return m_database.another()->scalar(select); }
