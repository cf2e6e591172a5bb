#include "support/PriceSamples.h"

#include "base/AppError.h"
#include "base/Text.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace PriceSamples {

const QString profile = u"[Kakaku]\r\nItem=Item.csv\r\nBase=Base.csv\r\nAdd=Add.csv\r\n"
                        "Element=Element.csv\r\nParts=Parts.csv\r\n[Log]\r\nPath=log\r\nSaveDays=0\r\n"_qs;

QStringList filesOfYear(const QString& price) {
    return {u"1,義足,B-1,名,形\r\n"_qs, u"1,1,下肢装具,E-9,長下肢装具,＊,,2,%1,%1,%1,90,90,90\r\n"_qs.arg(price),
            u"1,1,下肢装具,E-9,断端加算,3,%1,90\r\n"_qs.arg(price),
            u"1,1,下肢装具,E-9,支持部,皮革,%1,%1,%1,90,90,90\r\n"_qs.arg(price),
            u"1,下肢装具,足部,単軸,架空工業,K-1,1,○,,,%1,90\r\n"_qs.arg(price)};
}

QStringList largeFiles(int rows, int price) {
    QStringList files(5);
    for (int id = 1; id <= rows; ++id) {
        const QString yen = QString::number(price + id % 1000);
        files[0] += u"%1,下肢装具,E-9,名%1,形\r\n"_qs.arg(id);
        files[1] += u"%1,%1,下肢装具,E-9,名%1,形,,2,%2,%2,%2,90,90,90\r\n"_qs.arg(id).arg(yen);
        files[2] += u"%1,%1,下肢装具,E-9,加算%1,3,%2,90\r\n"_qs.arg(id).arg(yen);
        files[3] += u"%1,%1,下肢装具,E-9,要素%1,皮革,%2,%2,%2,90,90,90\r\n"_qs.arg(id).arg(yen);
        files[4] += u"%1,下肢装具,足部%1,単軸,架空工業,K-%1,1,○,,備考,%2,90\r\n"_qs.arg(id).arg(yen);
    }
    return files;
}

void writeFile(const QString& path, const QString& text) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) throw AppError(u"%1 cannot be written"_qs.arg(path));
    file.write(Text::toCp932(text));
}

void writeYear(const QString& folder, const QStringList& files) {
    const QStringList names{u"Item"_qs, u"Base"_qs, u"Add"_qs, u"Element"_qs, u"Parts"_qs};
    for (int i = 0; i < names.size(); ++i) writeFile(folder + u'/' + names.at(i) + u".csv"_qs, files.at(i));
}

} // namespace PriceSamples
