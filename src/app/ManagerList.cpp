#include "app/ManagerList.h"

#include "db/clsDbManager.h"

#include <functional>
#include <vector>

namespace {

using Prepare = std::function<void(Connection&)>;

// One line for each manager, in the order in which they are prepared.
const std::vector<Prepare>& managers() {
    static const std::vector<Prepare> list{};
    return list;
}

} // namespace

void PrepareManagers(Connection& connection) {
    for (const Prepare& prepare : managers()) prepare(connection);
}

void ReleaseManagers() {}

QString ReadPriceYear() {
    return gDbManager.Connection().scalar(u"SELECT [設定値] FROM [システム設定] WHERE [No] = 20"_qs);
}
