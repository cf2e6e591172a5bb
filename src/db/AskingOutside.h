#pragma once

#include <QString>

#include <functional>

class Connection;

// A save that puts questions to the operator must not hold the database's write lock while one of them is open: another
// machine would wait for the telephone call that came in between. So the save runs without asking; at a question whose
// answer is not known yet it is rolled back, the question is asked, and the save starts again with the answer.
namespace AskingOutside {

// Runs `work` in a transaction, which is committed when it gives true and rolled back when it gives false or raises.
// `work` may run several times and must start from the same input each time. Within a transaction of the caller the
// questions are asked at once.
bool run(Connection& connection, const std::function<bool()>& work);

// The answer to a question that is no message box: known from before, or asked now. `question` tells it from others.
int ask(const QString& question, const std::function<int()>& asker);

} // namespace AskingOutside
