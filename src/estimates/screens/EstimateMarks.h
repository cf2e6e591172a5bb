#pragma once

#include "estimates/EstimateChecks.h"

class QTabWidget;
class QWidget;

// Shows on the editor what an order lacks: at the fields that it is about, at the pages that they stand on, and all
// together beside the pages, where it is seen whatever page is in view. Nothing is asked.
class EstimateMarks {
public:
    explicit EstimateMarks(QTabWidget* pages);

    void show(const EstimateRemarks& remarks) const;

private:
    void markPage(int page, const QString& words) const;

    QTabWidget* m_pages;
};
