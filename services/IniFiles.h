// Settings files as they stand on the disk, kept in memory. A kept text serves as long as the file is the same one:
// device, inode, size and time of change. So reading a hundred keys reads the file once, and a change from outside is
// seen at the next read.
#pragma once

#include "services/IniText.h"

namespace IniFiles
{
/// The text of the file, or nothing when there is no such file. It holds until the next call.
/// Failure: passed on, when it is there and can't be read: no plain file, no permission, larger than 1 MiB, UTF-16.
const IniText *Find(const QString &Path);
/// The same, where no such file is an empty one.
const IniText &Text(const QString &Path);
} // namespace IniFiles
