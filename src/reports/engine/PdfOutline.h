#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// A name that leads to a page, from 1.
struct PdfBookmark {
    QString title;
    int page = 1;
};

// The file with bookmarks, which readers open beside the pages; without any it stays as it is. One for a page that the
// file does not have is left out.
QByteArray withBookmarks(const QByteArray& pdf, const QList<PdfBookmark>& bookmarks);
