// The folder that a test works in for a while: the one before comes back, as others name files from it.
#pragma once

#include <QDir>

class WorkingFolder
{
public:
    explicit WorkingFolder(const QString& folder) : before_(QDir::currentPath()) { QDir::setCurrent(folder); }
    ~WorkingFolder() { QDir::setCurrent(before_); }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    QString before_;
};
