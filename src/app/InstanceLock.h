#pragma once

#include <QString>

#include <memory>

class QLockFile;

// Tells whether this program folder is in use by another run on this machine. A run that crashed leaves nothing that
// matters: its mark counts only while its process lives.
class InstanceLock {
public:
    InstanceLock();
    ~InstanceLock();

    // False when another run holds the folder.
    bool take();
    void release();

    // The file that marks the folder as in use.
    static QString path();

private:
    std::unique_ptr<QLockFile> m_file;
};
