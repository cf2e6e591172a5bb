#pragma once

#include "db/clsOfficeManager.h"
#include "db/clsSysSettingManager.h"

#include <QMap>

#include <optional>

class Connection;

// What an office keeps of itself (`企業情報`) and its numbered settings (`システム設定`), which are kept together.
struct SystemProperties {
    clsOffice office;
    QMap<int, QString> settings; // values by their numbers
    QList<int> missing;          // those without a row

    bool operator==(const SystemProperties& other) const;

    // As they are stored. Nothing when either table has no row, which `lacks` names.
    static std::optional<SystemProperties> read(QString& lacks);
    // The settings of these numbers without a row get their delivered value here, and a row when they are saved.
    void addMissing(const QList<int>& numbers);
    // What cannot be stored of the settings that differ from `before`: its number and what to tell.
    struct Complaint {
        int No;
        int message; // code of the message, with the setting's name as its text
        QString name;
    };
    std::optional<Complaint> complaintAgainst(const SystemProperties& before) const;
    // Writes what differs from `before`, and rows that are missing, in one transaction.
    void save(Connection& connection, const SystemProperties& before) const;
};

// A setting as it is delivered; without a value for a number that is not.
clsSysSetting deliveredSetting(int No);
