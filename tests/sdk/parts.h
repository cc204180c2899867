// The parts of the client.
#pragma once

namespace client {

/// A dialog of the client's own: template from the client's resources, classes of the library's framework.
void UseOwnDialog();
/// A grid in a dialog of the framework and in one that knows nothing of it, edited by mouse and keyboard.
void UseGrid();
/// The library's toolbox beside a plain window.
void UseUtility();
/// A toolbar over the edit controls of a plain dialog, with the suite's dialogs behind its buttons.
void UseToolBar();

/// The example in C, used as a person does, and once more with UTF-8 as the code page of its 8-bit texts.
void UseCExample();
/// Other programs in C that use the plain C functions, answered by real input in the library's browser; the DLLs'
/// versions.
void UseCPrograms();
/// The programs that the page on the C interface shows.
void UseCPages();
/// The example for Node.js, used as those in C are; the variables DLGLIB_NODE and DLGLIB_NODE_EXAMPLE say where both
/// are.
void UseNode();
/// The programs of the guide, each used as it is meant to be; leaves a picture of each in the folder "pictures".
void UseGuide();
/// The demo of the archive, started in its own folder.
void UseDemo();
/// A request for one file, answered by real mouse input in the library's browser.
void UseRequest();

}  // namespace client
