#include "operations/OpenMachines.h"

#include "base/AppError.h"
#include "base/WholeFile.h"
#include "db/Connection.h"

#include <QCoreApplication>
#include <QFile>
#include <QSysInfo>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#endif

namespace {

constexpr qint64 door = 0; // who is in holds it together with the others, who wants to be alone holds it for himself
constexpr qint64 places = 64;
constexpr qint64 nameSize = 64; // bytes

QString marksOf(const ConnectionSettings& office) { return office.path + u"-machines"_qs; }

QString ownName() { return u"%1 (%2)"_qs.arg(QSysInfo::machineHostName()).arg(QCoreApplication::applicationPid()); }

QStringList sessions(const ConnectionSettings& office) {
    Connection connection(office);
    connection.open();
    // A session that this program has just ended may still be there.
    const QString names = connection.engineScalar(
        u"SELECT string_agg(DISTINCT application_name || coalesce(' ' || host(client_addr), ''), E'\\n')"
        u" FROM pg_stat_activity WHERE datname = current_database()"
        u" AND application_name <> current_setting('application_name')"_qs);
    return names.split(u'\n', Qt::SkipEmptyParts);
}

#ifdef F_OFD_SETLK
constexpr short shared = F_RDLCK;
constexpr short byItself = F_WRLCK;

// A lock that goes with the open file, also when the same process has it open twice.
bool setLock(int handle, short kind, qint64 place) {
    struct flock area {};
    area.l_type = kind;
    area.l_whence = SEEK_SET;
    area.l_start = place;
    area.l_len = 1;
    return ::fcntl(handle, F_OFD_SETLK, &area) == 0;
}
#else
constexpr short shared = 0;
constexpr short byItself = 1;

bool setLock(int, short, qint64) { return true; }
#endif

} // namespace

OpenMachines::OpenMachines() = default;
OpenMachines::~OpenMachines() = default;

bool OpenMachines::open(const ConnectionSettings& office) {
    auto file = std::make_unique<QFile>(marksOf(office));
    const bool isNew = !file->exists();
    if (!file->open(QIODevice::ReadWrite | QIODevice::Unbuffered)) return false;
    if (isNew) file->setPermissions(officeFileMode);
    m_file = std::move(file);
    return true;
}

bool OpenMachines::lock(short kind, qint64 place) const { return setLock(m_file->handle(), kind, place); }

// A folder that cannot be written to holds no office that could be put back.
void OpenMachines::enter(const ConnectionSettings& office) {
    leave();
    if (office.provider != Provider::SQLite || !QFile::exists(office.path) || !open(office)) return;
    if (!lock(shared, door)) {
        leave();
        throw AppError(u"他の端末がリストアを行っています。終わってから、もう一度起動してください。"_qs,
                       u"OpenMachines"_qs);
    }
    writeName();
}

void OpenMachines::writeName() {
    for (qint64 place = 1; place < places; ++place) {
        if (!lock(byItself, place)) continue;
        QByteArray name = ownName().toUtf8().left(nameSize - 1);
        name.append(nameSize - name.size(), '\0');
        m_file->seek(place * nameSize);
        m_file->write(name);
        return;
    }
}

void OpenMachines::leave() { m_file.reset(); }

QStringList OpenMachines::others(const ConnectionSettings& office) {
    if (office.provider != Provider::SQLite) return sessions(office);
    OpenMachines look;
    QStringList names;
    if (!look.open(office)) return names;
    for (qint64 place = 1; place < places; ++place) {
        if (look.lock(byItself, place)) continue;
        look.m_file->seek(place * nameSize);
        names << QString::fromUtf8(look.m_file->read(nameSize).constData());
    }
    return names;
}

std::unique_ptr<OpenMachines> OpenMachines::alone(const ConnectionSettings& office) {
    auto place = std::make_unique<OpenMachines>();
    if (office.provider != Provider::SQLite) return sessions(office).isEmpty() ? std::move(place) : nullptr;
    if (!place->open(office) || !place->lock(byItself, door)) return nullptr;
    return place;
}
