#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

#include <cstdio>

// Makes the pages of the manual, which are written in Markdown, into HTML for the program's own reader:
//
//     manual-pages OUT PAGE.md...
//
// A comment <!-- frmX --> or <!-- frmX control --> above a heading tells that the help of a screen, or of a part of it,
// opens there. The file `places` lists them all: the screen's or control's name, a tab, page and heading.

namespace {

constexpr int widestPicture = 720; // pixels
constexpr int cellPadding = 4;

struct Heading {
    QString anchor;
    QStringList places;
};

struct Page {
    QString markdown; // without the comments
    QList<Heading> headings;
};

// As the links within the pages name a heading.
QString anchorOf(QString heading) {
    static const QRegularExpression dropped(u"[^\\p{L}\\p{N}\\p{M} _-]"_qs,
                                            QRegularExpression::UseUnicodePropertiesOption);
    return heading.toLower().remove(dropped).replace(u' ', u'-');
}

QString withLinksToHtml(QString line) {
    static const QRegularExpression link(uR"(\]\((?:[^)#:]*/)?([^)/#:]*)\.md(#[^)]*)?\))"_qs);
    return line.replace(link, u"](\\1.html\\2)"_qs);
}

Page pageOf(const QString& text) {
    static const QRegularExpression place(u"^<!-- (\\w+(?: \\w+)?) -->$"_qs);
    static const QRegularExpression heading(u"^#+ (.*)$"_qs);
    Page page;
    QStringList lines, places;
    bool isCode = false;
    for (const QString& line : text.split(u'\n')) {
        if (line.startsWith(u"```"_qs)) isCode = !isCode;
        if (const auto match = place.match(line); match.hasMatch()) {
            places << match.captured(1);
            continue;
        }
        if (const auto match = heading.match(line); match.hasMatch() && !isCode)
            page.headings << Heading{anchorOf(match.captured(1).trimmed()), std::exchange(places, {})};
        // Read as HTML, it would take the rest of the page with it.
        lines << withLinksToHtml(line).replace(u"<br>"_qs, QString(QChar::LineSeparator));
    }
    page.markdown = lines.join(u'\n');
    return page;
}

void nameHeadings(QTextDocument& document, const QList<Heading>& headings) {
    qsizetype next = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || next >= headings.size()) continue;
        QTextCursor cursor(block);
        cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
        QTextCharFormat format;
        format.setAnchor(true);
        format.setAnchorNames({headings.at(next++).anchor});
        cursor.mergeCharFormat(format);
    }
}

void ruleTables(QTextFrame* frame) {
    for (QTextFrame* child : frame->childFrames()) {
        if (auto* table = qobject_cast<QTextTable*>(child)) {
            QTextTableFormat format = table->format();
            format.setBorderCollapse(true);
            format.setBorder(1);
            format.setCellPadding(cellPadding);
            table->setFormat(format);
        }
        ruleTables(child);
    }
}

QByteArray readAll(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) qFatal("%s cannot be read", qUtf8Printable(path));
    return file.readAll();
}

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        qFatal("%s cannot be written", qUtf8Printable(path));
}

// In the size that they are shown in: the reader itself scales without smoothing.
void copyPicture(const QString& from, const QString& to) {
    const QImage picture(from);
    const bool fits = picture.width() <= widestPicture;
    if (!(fits ? picture : picture.scaledToWidth(widestPicture, Qt::SmoothTransformation)).save(to))
        qFatal("%s cannot be made of %s", qUtf8Printable(to), qUtf8Printable(from));
}

void copyPictures(const QString& from, const QString& to) {
    QDir().mkpath(to);
    for (const QString& name : QDir(from).entryList({u"*.png"_qs}, QDir::Files))
        copyPicture(QDir(from).filePath(name), QDir(to).filePath(name));
}

// Else they come from whatever font the machine thinks of.
QString withKanjiInCode(QString html) {
    return html.replace(u"font-family:'monospace'"_qs, u"font-family:'Noto Sans Mono CJK JP','monospace'"_qs);
}

// Writes one page; gives its lines of the places.
QString makePage(const QFileInfo& source, const QDir& out) {
    const Page page = pageOf(QString::fromUtf8(readAll(source.filePath())));
    QTextDocument document;
    document.setDefaultFont(QFont(u"Noto Sans CJK JP"_qs, 10));
    document.setMarkdown(page.markdown, QTextDocument::MarkdownDialectGitHub);
    nameHeadings(document, page.headings);
    ruleTables(document.rootFrame());
    const QString name = source.completeBaseName() + u".html"_qs;
    write(out.filePath(name), withKanjiInCode(document.toHtml()).toUtf8());
    QString places;
    for (const Heading& heading : page.headings)
        for (const QString& place : heading.places) places += u"%1\t%2#%3\n"_qs.arg(place, name, heading.anchor);
    return places;
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    const QStringList words = QGuiApplication::arguments();
    if (words.size() < 3) {
        std::fprintf(stderr, "manual-pages OUT PAGE.md...\n");
        return 2;
    }
    const QDir out(words.at(1));
    out.mkpath(u"."_qs);
    QString places;
    for (const QString& page : words.mid(2)) places += makePage(QFileInfo(page), out);
    write(out.filePath(u"places"_qs), places.toUtf8());
    copyPictures(QFileInfo(words.at(2)).dir().filePath(u"pictures"_qs), out.filePath(u"pictures"_qs));
    return 0;
}
