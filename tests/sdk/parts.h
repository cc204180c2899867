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

/// A request for one file, answered by real mouse input in the library's browser.
void UseRequest();

}  // namespace client
