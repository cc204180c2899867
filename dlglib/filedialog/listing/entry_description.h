// What the rows say beside their names: dates, sizes, drive types and titles, worked out when a row is first needed.
#pragma once

#include "dlglib/filedialog/basics/keep_going.h"
#include "dlglib/filedialog/listing/file_entry.h"
#include "dlglib/filedialog/listing/shown_listing.h"
#include "platform/os/os.h"

namespace filedialog {

/// Fills in the row's description, and its size or titles, for the listing; call it before a row is drawn or compared
/// by anything but its name.
///
/// - Drives get the text of their type. Network places keep the comment they came with.
/// - Folders and shortcuts to folders get date and size from the file system, in title display an empty description.
///   Drives and folders are worked out again at every call.
/// - Files and shortcuts to files are worked out once, while `described` is false: date and size; in title display the
///   titles of the chosen items for model files (at most kTitleLimit bytes each, all empty when the file cannot be
///   read; the first one is the description too), or the one title of the other kinds that have one.
/// - What cannot be examined gets an empty description and the size 0; a date that cannot be expressed is empty.
///
/// Texts are Shift_JIS. Afterwards `described` is true.
void Describe(os::Files& files, FileEntry* entry, const ShownListing& listing);

/// Describes every row that is not described yet, as sorting by anything but the name needs it. Asks after each of them
/// whether to go on, as a file may take long to open. False when it was given up; the rows described so far stay so.
bool DescribeAll(os::Files& files, EntryTable* table, const ShownListing& listing, const KeepGoing& keepGoing = {});

}  // namespace filedialog
