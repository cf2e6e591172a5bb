#pragma once

#include "ui/ListScreen.h"

namespace Ui {
class frmZipUpdate;
}

// Replaces the postal code book: by a delivered database, or by the files that the post office publishes.
class frmZipUpdate : public ListScreen {
    Q_OBJECT

public:
    explicit frmZipUpdate(QWidget* parent = nullptr);
    ~frmZipUpdate() override;

protected:
    void load() override;

private:
    // The files to import; none when there is nothing, which was told.
    QStringList sources() const;
    QStringList sourcesOnMedium() const;
    QStringList sourcesInFolder() const;
    void run();
    void importDatabase(const QString& file);
    void importPublished(const QStringList& files, const Pause& pause);
    void replaceBook(const std::function<void()>& fill);
    void showCount();
    void chooseFolder();
    void chooseFile();

    std::unique_ptr<Ui::frmZipUpdate> ui;
};
