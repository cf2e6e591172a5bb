#pragma once

#include "reports/ReportClasses.h"

// What is printed to fit a report to its paper, without any order.

// One document with something in every field.
ReportRecordset sampleRecords(const ReportClass& report);

// The document's name without the one that it is for, such as 労災見積書.
QString documentName(const ReportClass& report);

// A cross of two rulers in millimetres through the middle of the paper and a mark in each corner, with these words.
ReportPage rulerPage(const ReportLayout& layout, const QStringList& words);
