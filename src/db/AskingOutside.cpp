#include "db/AskingOutside.h"

#include "base/Seams.h"
#include "db/Connection.h"

#include <QList>

#include <utility>

namespace AskingOutside {

namespace {

struct Answer {
    QString question;
    int answer;
};

// Raised at a question whose answer is not known; no handler of a work may keep it.
struct Pending {
    QString question;
    std::function<int()> asker;
};

struct Run {
    QList<Answer> answers; // in the order of the questions
    qsizetype next = 0;
};

Run* current = nullptr;

// While it lives, message boxes are questions of the run.
class Boxes {
public:
    explicit Boxes(Run& run) : m_before(seams().message), m_outer(std::exchange(current, &run)) {
        seams().message = [before = m_before](const MessageBoxRequest& request) {
            return static_cast<qint16>(ask(request.text, [before, request] { return before(request); }));
        };
    }
    ~Boxes() {
        seams().message = m_before;
        current = m_outer;
    }
    Boxes(const Boxes&) = delete;
    Boxes& operator=(const Boxes&) = delete;

private:
    std::function<qint16(const MessageBoxRequest&)> m_before;
    Run* m_outer;
};

bool runOnce(Connection& connection, const std::function<bool()>& work, Run& run) {
    run.next = 0;
    Boxes boxes(run);
    Transaction transaction(connection);
    if (!work()) return false;
    transaction.commit();
    return true;
}

} // namespace

int ask(const QString& question, const std::function<int()>& asker) {
    if (!current) return asker();
    if (current->next < current->answers.size()) {
        const Answer& known = current->answers.at(current->next);
        if (known.question == question) {
            ++current->next;
            return known.answer;
        }
        // The data changed in between, and with them what there is to ask.
        current->answers.resize(current->next);
    }
    throw Pending{question, asker};
}

bool run(Connection& connection, const std::function<bool()>& work) {
    if (connection.transactionDepth() > 0) {
        Transaction transaction(connection);
        if (!work()) return false;
        transaction.commit();
        return true;
    }
    Run run;
    while (true) {
        try {
            return runOnce(connection, work, run);
        } catch (const Pending& pending) {
            run.answers << Answer{pending.question, pending.asker()};
        }
    }
}

} // namespace AskingOutside
