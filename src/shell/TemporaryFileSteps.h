// The steps by which Util makes a temporary file, each with the failure that it reports.
#pragma once

#include "platform/text/Text.h"

#include <sys/types.h>

namespace zolt {

/// The login session of a process as eight hexadecimal digits, lower case: the same for all programs of one session.
/// @param process  0 for the running one
/// @throws AssertionException "SessionGetInfo failed: " and the status as four characters
QString sessionIdentifier(pid_t process = 0);

/// The path "DIRECTORY/Zolt-SESSION-XXXXXXXX.EXTENSION".
/// @param directory  absent for the system's directory of temporary files
/// @throws AssertionException where neither directory nor a default is there, where the extension is absent, and as
/// sessionIdentifier
QString temporaryFileTemplate(const OptionalText& directory, const OptionalText& extension);

/// Makes an empty file that was not there before and puts its random letters in the place of the X's.
/// @param path  a template, as a file system path; holds the file's path afterwards
/// @param suffixLength  bytes behind the X's
/// @return an open descriptor
/// @throws AssertionException "Unable to create a temporary file: " and the system's text
int createTemporaryFile(QByteArray& path, int suffixLength);

/// @throws AssertionException "Unable to close the temporary file: " and the system's text
void closeTemporaryFile(int descriptor);

} // namespace zolt
