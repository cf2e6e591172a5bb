#pragma once

#include <QString>

#include <exception>

// The one error that crosses the floors of the program. `ReportError` shows its description and writes it with its
// source to the log. An error of the program itself carries `AppError::Application` as its number.
class AppError : public std::exception {
public:
    static constexpr qint64 Application = 0x80040201;

    explicit AppError(QString description, QString source = {}, qint64 number = Application)
        : m_description(std::move(description)), m_source(std::move(source)), m_number(number),
          m_utf8(m_description.toUtf8()) {}

    const QString& description() const { return m_description; }
    const QString& source() const { return m_source; }
    qint64 number() const { return m_number; }
    const char* what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_description;
    QString m_source;
    qint64 m_number;
    QByteArray m_utf8;
};

namespace Errors {
// A text that does not convert to the number or date asked for.
AppError typeMismatch(const QString& source = {});
// A number that leaves its 16-, 32- or 64-bit range.
AppError overflow(const QString& source = {});
} // namespace Errors
