"""Asks the user for models of a folder and prints their names.

    python choose_model.py <folder of the DLLs> <folder of the models>

The exit code is 0 when a model was chosen, 1 when not, 2 after an error.
"""

import sys

import dlglib

KIND = "#MODEL#"


def choose_models(library, folder):
    """The real paths of the models that the user chooses; none when the user gives up."""
    library.define_kind(KIND, folder, "*.MDL")
    with library.file_request() as request:
        request.set_kind(KIND)
        request.set_caption("モデルの選択")
        request.set_several_files(True)
        return request.names() if request.run() else []


def main(arguments):
    if len(arguments) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    try:
        names = choose_models(dlglib.load(arguments[0]), arguments[1])
    except dlglib.DlglibError as error:
        print(error, file=sys.stderr)
        return 2
    for name in names:
        print(name)
    return 0 if names else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
