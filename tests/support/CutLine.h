#pragma once

#include <QString>

#include <atomic>
#include <list>
#include <thread>

// A line to the test server over the loopback, which the test can cut as networks and servers do. It works in a thread
// of its own, since who asks over it waits.
class CutLine {
public:
    enum class Cut {
        Closed,  // in order, as by a server that ends
        Reset,   // as by a machine that was started anew
        Answers, // all that the server sends from now on is lost, then the line is closed

        // As soon as a COMMIT comes by:
        Commit,         // it is lost, and the line is closed
        CommitSilently, // it is lost, and the server is not told that the line is closed
        CommitAnswer,   // it reaches the server, and its answer is lost
    };

    // `socket` is the file of the server's socket.
    explicit CutLine(const QString& socket);
    ~CutLine();
    CutLine(const CutLine&) = delete;
    CutLine& operator=(const CutLine&) = delete;

    // "127.0.0.1:port", as a database's address.
    QString address() const;
    // Cuts whatever stands, and returns when it is cut, or waits for what it is to be cut at.
    void cut(Cut how);
    // Whether new connections are taken; at the beginning they are.
    void take(bool taken) { m_taking = taken; }

private:
    struct Way {
        int client, server;
        Cut planned = Cut::Closed; // at its COMMIT or its next answer; Closed: nothing is planned
    };

    void run();
    void accept();
    bool forward(Way& way, bool fromClient);
    void obey(Cut how);
    void end(const Way& way);

    QByteArray m_socket;
    int m_listening = -1;
    int m_commands[2], m_done[2]; // pipes
    std::atomic<bool> m_taking = true;
    std::list<Way> m_ways;
    std::list<int> m_left; // sides of the server that stay open
    std::thread m_thread;
};
