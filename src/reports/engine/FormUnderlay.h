#pragma once

#include <QImage>

// The scan of a paper form, so that a report can be fitted to it by eye. It is shown and never printed.
class FormUnderlay {
public:
    // Nothing to show.
    FormUnderlay() = default;
    // PNG, JPEG or PDF. Raises an error that tells the operator when the file is none of them or cannot be read.
    explicit FormUnderlay(const QString& path);
    // The same by the file's head alone, and nothing to show where that fails: work goes on without its scan.
    static FormUnderlay ifReadable(const QString& path);

    bool isEmpty() const { return m_path.isEmpty(); }
    // The scan for a page, from 1, in so many pixels: the page of that number, or the first one of a scan with fewer.
    QImage picture(int page, const QSize& pixels) const;

    static QStringList fileFilters();

private:
    QString m_path;
};
