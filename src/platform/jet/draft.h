// A file that is made beside its target, and takes its name when it is whole.
#pragma once

#include "platform/jet/claim.h"
#include "platform/jet/error.h"

#include <QString>

namespace jet {

// What a kill leaves of a draft is removed when the next one is made in that folder, or a BDP is opened there.
class Draft
{
public:
    // Makes the draft, an empty file, and removes leftovers beside it. Throws permissionDenied or diskFull.
    explicit Draft(const QString& target);
    ~Draft(); // removes it, unless it has got its name
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    const QString& path() const { return path_; }

    // Brings the draft to the disk. Throws Error as the constructor.
    void sync();

    // Brings the draft to the disk and gives it the name of the target; the folder is synced, too. place() throws
    // fileExists where anything stands there, replace() takes the place of a file. Throws Error as the constructor; the
    // target is then as it was, unless it is the disk itself that failed at the folder.
    // Precondition: no connection of this program has the draft or the target open.
    void place();
    void replace();

private:
    void take(bool over);

    QString target_;
    QString path_;
    Claim claim_; // so that another program doesn't take it for a leftover
};

// Removes what killed programs have left of their drafts in the folder: files only, and none that a running program
// has in work. Whatever can't be removed stays, without a word.
void removeLeftovers(const QString& folder);

// Removes what the engine may leave beside a file when its program is killed. It is gone for good on return: the engine
// would play it back into another file of that name.
void removeCompanions(const QString& path);

// The error of a file that couldn't be written for that reason.
Error writeError(const std::error_code& reason, const QString& path);

} // namespace jet
