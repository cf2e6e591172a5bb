#include "base/Text.h"

#include "base/AppError.h"

#include <QRegularExpression>

#include <unicode/brkiter.h>
#include <unicode/translit.h>
#include <unicode/uchar.h>
#include <unicode/ucnv.h>
#include <unicode/unistr.h>

#include <memory>

namespace {

struct ConverterCloser {
    void operator()(UConverter* converter) const { ucnv_close(converter); }
};
using Converter = std::unique_ptr<UConverter, ConverterCloser>;

// IBM-943C is ICU's table of what Japanese Windows calls code page 932, with the backslash and the tilde at home.
constexpr char codePage[] = "ibm-943_P15A-2003";

Converter openConverter() {
    UErrorCode status = U_ZERO_ERROR;
    Converter converter(ucnv_open(codePage, &status));
    if (U_FAILURE(status)) throw AppError(u"日本語コードページ(CP932)の変換が利用できません。"_qs, u"Text"_qs);
    return converter;
}

UConverter* sharedConverter() {
    static const Converter converter = openConverter();
    return converter.get();
}

// Windows maps these where ICU's table has the JIS look-alikes; both spellings must reach the same bytes.
char16_t windowsSpelling(char16_t c) {
    switch (c) {
    case u'\u301C':
        return u'\uFF5E'; // wave dash
    case u'\u2212':
        return u'\uFF0D'; // minus sign
    case u'\u2016':
        return u'\u2225'; // double vertical line
    case u'\u2014':
        return u'\u2015'; // em dash
    default:
        return c;
    }
}

std::unique_ptr<icu::Transliterator> openTransliterator(const char* id) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Transliterator> result(
        icu::Transliterator::createInstance(icu::UnicodeString(id), UTRANS_FORWARD, status));
    if (U_FAILURE(status) || !result) throw AppError(u"かな変換が利用できません。"_qs, u"Text"_qs);
    return result;
}

icu::UnicodeString icuText(const QString& text) {
    return {reinterpret_cast<const UChar*>(text.utf16()), static_cast<int32_t>(text.size())};
}

QString transliterated(const icu::Transliterator& transliterator, const QString& text) {
    icu::UnicodeString value = icuText(text);
    transliterator.transliterate(value);
    return QString(reinterpret_cast<const QChar*>(value.getBuffer()), value.length());
}

const icu::Transliterator& narrowing() {
    static const auto instance = openTransliterator("Fullwidth-Halfwidth");
    return *instance;
}

const icu::Transliterator& widening() {
    static const auto instance = openTransliterator("Halfwidth-Fullwidth");
    return *instance;
}

const icu::Transliterator& katakana() {
    static const auto instance = openTransliterator("Hiragana-Katakana");
    return *instance;
}

std::unique_ptr<icu::BreakIterator> openPhraseBreaks() {
    UErrorCode status = U_ZERO_ERROR;
    const icu::Locale byPhrases = icu::Locale::forLanguageTag("ja-u-lw-phrase", status);
    std::unique_ptr<icu::BreakIterator> breaks(icu::BreakIterator::createLineInstance(byPhrases, status));
    if (U_FAILURE(status) || !breaks) throw AppError(u"日本語の行分割が利用できません。"_qs, u"Text"_qs);
    return breaks;
}

QString asText(char32_t character) { return QString::fromUcs4(&character, 1); }

// The converter puts a question mark for most of what it lacks, but drops in silence what is not seen by itself.
bool lackedByCp932(char32_t character) {
    const QByteArray bytes = Text::toCp932(asText(character));
    return bytes.isEmpty() || (bytes == "?" && character != U'?');
}

QString codePoint(char32_t character) {
    return u"U+"_qs + QString::number(character, 16).toUpper().rightJustified(4, u'0');
}

bool isMark(char32_t character) { return U_GET_GC_MASK(character) & U_GC_M_MASK; }

bool isSeenByItself(char32_t character) {
    return u_isgraph(static_cast<UChar32>(character)) && !isMark(character) &&
           !u_hasBinaryProperty(static_cast<UChar32>(character), UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

QString kindOfUnseen(char32_t character) {
    if (u_hasBinaryProperty(static_cast<UChar32>(character), UCHAR_VARIATION_SELECTOR)) return u"異体字"_qs;
    return isMark(character) ? u"合成文字"_qs : u"見えない文字"_qs;
}

} // namespace

namespace Text {

void assertConverters() { sharedConverter(); }

QByteArray toCp932(const QString& text) {
    QString spelled = text;
    for (QChar& c : spelled) c = QChar(windowsSpelling(c.unicode()));
    UConverter* converter = sharedConverter();
    UErrorCode status = U_ZERO_ERROR;
    ucnv_setSubstString(converter, u"?", 1, &status);
    QByteArray bytes(UCNV_GET_MAX_BYTES_FOR_STRING(spelled.size(), ucnv_getMaxCharSize(converter)), Qt::Uninitialized);
    status = U_ZERO_ERROR;
    const int32_t length =
        ucnv_fromUChars(converter, bytes.data(), static_cast<int32_t>(bytes.size()),
                        reinterpret_cast<const UChar*>(spelled.utf16()), static_cast<int32_t>(spelled.size()), &status);
    bytes.truncate(U_FAILURE(status) ? 0 : length);
    return bytes;
}

QString fromCp932(const QByteArray& bytes) {
    UErrorCode status = U_ZERO_ERROR;
    QString text(bytes.size() * 2 + 1, Qt::Uninitialized);
    const int32_t length =
        ucnv_toUChars(sharedConverter(), reinterpret_cast<UChar*>(text.data()), static_cast<int32_t>(text.size()),
                      bytes.constData(), static_cast<int32_t>(bytes.size()), &status);
    text.truncate(U_FAILURE(status) ? 0 : length);
    return text;
}

int cp932Length(const QString& text) { return static_cast<int>(toCp932(text).size()); }

QStringList missingInCp932(const QString& text) {
    if (fromCp932(toCp932(text)) == text) return {}; // nearly every text, and quicker than its characters one by one
    QStringList missing;
    QString before;
    for (const char32_t character : text.toUcs4()) {
        const bool seen = isSeenByItself(character);
        if (lackedByCp932(character))
            missing << (seen ? asText(character)
                             : u"%1（%2 %3）"_qs.arg(before, kindOfUnseen(character), codePoint(character)));
        if (seen) before = asText(character);
    }
    missing.removeDuplicates();
    return missing;
}

QString withCodePoints(const QString& text) {
    QString written;
    for (const char32_t character : text.toUcs4())
        written += lackedByCp932(character) ? codePoint(character) : asText(character);
    return written;
}

QString toHalfWidth(const QString& text) { return transliterated(narrowing(), text); }

QString toFullWidth(const QString& text) { return transliterated(widening(), text); }

QString toNarrowLetters(const QString& text) {
    constexpr char16_t widthOffset = u'\uFF01' - u'!';
    static const QString dashes = u"ー－−‐―ｰ"_qs;
    QString narrow = text;
    for (qsizetype i = 0; i < narrow.size(); ++i) {
        QChar& sign = narrow[i];
        if (i > 0 && narrow.at(i - 1).isDigit() && dashes.contains(sign))
            sign = u'-';
        else if (sign >= u'\uFF01' && sign <= u'\uFF5E')
            sign = QChar(sign.unicode() - widthOffset);
        else if (sign == u'\u3000')
            sign = u' ';
    }
    return narrow;
}

QString toHalfKana(const QString& text) { return toHalfWidth(transliterated(katakana(), text)); }

QStringList phrases(const QString& text) {
    thread_local const auto breaks = openPhraseBreaks();
    const icu::UnicodeString value = icuText(text);
    breaks->setText(value);
    QStringList found;
    for (int32_t start = breaks->first(), end = breaks->next(); end != icu::BreakIterator::DONE;
         start = end, end = breaks->next())
        found << text.mid(start, end - start);
    return found;
}

namespace {

// The units of the sign at a place: two for a pair, one for all else, also for half of a pair.
int unitsAt(const QString& text, qsizetype place) {
    const bool pair =
        text.at(place).isHighSurrogate() && place + 1 < text.size() && text.at(place + 1).isLowSurrogate();
    return pair ? 2 : 1;
}

} // namespace

QString first(const QString& text, int signs) {
    qsizetype units = 0;
    for (int i = 0; i < signs && units < text.size(); ++i) units += unitsAt(text, units);
    return text.left(units);
}

qsizetype signs(const QString& text) {
    qsizetype count = 0;
    for (qsizetype place = 0; place < text.size(); place += unitsAt(text, place)) ++count;
    return count;
}

namespace {

qsizetype loneHalfFrom(const QString& text, qsizetype start) {
    for (qsizetype place = start; place < text.size(); place += unitsAt(text, place))
        if (text.at(place).isSurrogate() && unitsAt(text, place) == 1) return place;
    return -1;
}

} // namespace

qsizetype loneHalf(const QString& text) { return loneHalfFrom(text, 0); }

QString wholeSigns(const QString& text) {
    QString whole = text;
    for (qsizetype place = loneHalf(whole); place >= 0; place = loneHalfFrom(whole, place + 1))
        whole[place] = QChar::ReplacementCharacter;
    return whole;
}

namespace {

// A pattern finds nothing at all in a text with a lone half.
QString withoutHalves(QString text) {
    for (qsizetype place = loneHalf(text); place >= 0; place = loneHalfFrom(text, place + 1)) text[place] = QChar::Null;
    return text.remove(QChar::Null);
}

QString withoutControls(QString line) {
    line.replace(u'\t', u' ');
    line.removeIf([](QChar sign) { return sign.category() == QChar::Other_Control; });
    return line.trimmed();
}

} // namespace

QString oneLine(const QString& text) {
    static const QRegularExpression lineEnds(u"[\\n\\r\\x0B\\x0C\\x{85}\\x{2028}\\x{2029}]"_qs);
    QString line;
    for (const QString& part : withoutHalves(text).split(lineEnds))
        if (line = withoutControls(part); !line.isEmpty()) break;
    return line;
}

QString rightTrimmed(const QString& text) {
    qsizetype length = text.size();
    while (length > 0 && text.at(length - 1) == u' ') --length;
    return text.left(length);
}

} // namespace Text
