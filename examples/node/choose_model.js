// Asks the user for models of a folder and prints their names.
//
//   node choose_model.js <folder of the models> <path of crvndlglib.dll>
//
// The exit code is 0 when a model was chosen, 1 when not, 2 after an error.
"use strict";

const { DLGLIB_FORM_REAL, DLGLIB_OK, DlglibError, Library } = require("./dlglib.js");

const KIND = "#MODEL#";

// The real paths of the models that the user chooses; none when the user gives up.
function chooseModels(library, folder) {
  library.call("DlglibDefineKindUtf8", KIND, folder, "*.MDL");
  return library.with("DlglibFileRequest", [], (request) => {
    library.call("DlglibFileRequestSetKindUtf8", request, KIND);
    library.call("DlglibFileRequestSetCaptionUtf8", request, "モデルの選択");
    library.call("DlglibFileRequestSetSeveralFiles", request, 1);
    if (library.call("DlglibFileRequestRun", request) !== DLGLIB_OK) return [];
    const count = library.number("DlglibFileRequestCount", request);
    return Array.from({ length: count }, (_, index) =>
      library.text("DlglibFileRequestNameUtf8", request, index, DLGLIB_FORM_REAL));
  });
}

function main(given) {
  if (given.length !== 2) {
    console.error("node choose_model.js <folder of the models> <path of crvndlglib.dll>");
    return 2;
  }
  try {
    const names = chooseModels(new Library(given[1]), given[0]);
    for (const name of names) console.log(name);
    return names.length > 0 ? 0 : 1;
  } catch (error) {
    if (!(error instanceof DlglibError)) throw error;
    console.error(error.message);
    return 2;
  }
}

process.exitCode = main(process.argv.slice(2));
