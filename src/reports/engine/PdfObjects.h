#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

// A change inside of a file: so many bytes at a place become others.
struct PdfEdit {
    qsizetype at = 0, length = 0;
    QByteArray text;
};

// The objects of a PDF file as the writer leaves it, with one cross-reference table at its end. They count from 1.
class PdfObjects {
public:
    explicit PdfObjects(const QByteArray& pdf);

    qsizetype count() const { return m_offsets.size(); }
    qsizetype offset(qsizetype object) const { return m_offsets.value(object, -1); }
    // What stands between "obj" and "endobj".
    QByteArray body(qsizetype object) const;
    // The catalogue, from which everything else is found.
    qsizetype root() const { return m_root; }
    // The objects that a list of references under a key of an object names, as in "/Kids [4 0 R 7 0 R]".
    QList<qsizetype> references(qsizetype object, const QByteArray& key) const;

    // The file with the edits made and every offset moved along.
    QByteArray edited(QList<PdfEdit> edits) const;
    // The file with objects written anew behind its end, or added where their numbers follow the last one; what stood
    // there stays, as the format has it.
    QByteArray updated(const QMap<qsizetype, QByteArray>& bodies) const;

private:
    qsizetype numberAt(qsizetype at) const;

    const QByteArray& m_pdf;
    qsizetype m_table = 0;
    qsizetype m_pointer = 0;
    qsizetype m_entries = 0;
    qsizetype m_root = 0;
    qsizetype m_info = 0;
    QList<qsizetype> m_offsets;
};

// A text as such a file writes it: the digits of its units.
QByteArray pdfHex(const QString& text);
