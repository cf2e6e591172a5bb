#include "app/basMain.h"

#include "app/InstanceLock.h"
#include "app/frmMenu.h"
#include "base/Application.h"
#include "base/Arrangement.h"
#include "base/Seams.h"
#include "base/basMessage.h"
#include "base/clsLogger.h"
#include "base/clsProfile.h"
#include "db/clsDbManager.h"
#include "db/clsSysSettingManager.h"
#include "operations/Managers.h"
#include "operations/OpenMachines.h"

#include <QCoreApplication>
#include <QFileInfo>

namespace {

InstanceLock& instanceLock() {
    static InstanceLock lock;
    return lock;
}

OpenMachines& openMachines() {
    static OpenMachines machines;
    return machines;
}

void readSystemDate() { setSystemDate(clsProfile().GetValue(u"Misc"_qs, u"SYSDATE"_qs)); }

void logStart() {
    gLogger->WriteLog(u"Halvane 起動"_qs);
    gLogger->WriteLog(u"Path:"_qs + programFolder());
    gLogger->WriteLog(u"ExeName:"_qs + QFileInfo(QCoreApplication::applicationFilePath()).fileName());
    gLogger->WriteLog(u"Version:"_qs + programVersion());
}

bool showMenu() {
    auto* menu = new frmMenu;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (menu->Load()) {
        menu->show();
        return true;
    }
    menu->close();
    return false;
}

template <class Step> void ignoringErrors(Step step) noexcept {
    try {
        step();
    } catch (...) {
        // The program ends; there is nobody left to be told.
    }
}

} // namespace

bool Main() {
    bool shown = false;
    const bool started = guarded([&shown] {
        if (!instanceLock().take()) { // nothing was started here, so there is nothing to end
            ShowMessage(Message::Information, u"Halvaneは既に起動されています！"_qs);
            return;
        }
        readSystemDate();
        gUserNo = 1;
        Arrangement::beginSession();
        InitializeApp();
        shown = showMenu();
    });
    if (!started) EndProgram();
    return shown;
}

void InitializeApp() {
    gLogger = std::make_unique<clsLogger>();
    logStart();
    openMachines().enter(ConnectionSettings::fromProfile(clsProfile()));
    gDbManager.DBOpen();
    Managers::prepare(gDbManager.Connection());
    gPriceYear = gSysSettingManager.value(Setting::PriceYear);
}

void TerminateApp() noexcept {
    ignoringErrors([] { gDbManager.DBClose(); });
    ignoringErrors([] { Managers::release(); });
    ignoringErrors([] { openMachines().leave(); });
    ignoringErrors([] { writeLog(u"HALVANE normal ENDED"_qs); });
    gLogger.reset();
}

void EndProgram() noexcept {
    TerminateApp();
    instanceLock().release();
}
