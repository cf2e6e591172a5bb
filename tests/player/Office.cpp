#include "Office.h"

#include "base/Text.h"
#include "db/Connection.h"

#include <QFile>

namespace {

constexpr char iniForm[] = "[DB]\r\nPath=.\r\nDatabase=Halvane.db\r\nProvider=SQLite\r\n[Log]\r\nPath=log\r\n";

} // namespace

Office::Office(Provider) {
    QFile ini(iniFile());
    if (ini.open(QIODevice::WriteOnly)) ini.write(iniForm);
    m_settings = ConnectionSettings::sqliteFile(m_folder.filePath(u"Halvane.db"_qs));
}

Office::~Office() = default;

QString Office::iniFile() const { return m_folder.filePath(u"Halvane.ini"_qs); }

void Office::loadSample() {}

void Office::execute(const QString& statement) {
    Connection connection(m_settings);
    connection.open();
    connection.execute(statement);
}

QString Office::scalar(const QString& select) {
    Connection connection(m_settings);
    connection.open();
    return connection.scalar(select);
}
