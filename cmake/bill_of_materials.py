#!/usr/bin/env python3
"""Writes the bill of materials of an unpacked archive: what it is made of and each file with its sum (SPDX 2.3, JSON).

    bill_of_materials.py <folder> <version> <file to write, below the folder>

The run-time libraries are linked into the two DLLs and the demo; their versions are those of the compiler that is found.
"""
import datetime
import hashlib
import json
import os
import subprocess
import sys

COMPILER = "x86_64-w64-mingw32-g++-posix"
GCC_LICENCE = "GPL-3.0-or-later WITH GCC-exception-3.1"


def said_by(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def runtime_version():
    """The version of the run-time library's headers, or "unknown"."""
    macros = subprocess.run([COMPILER, "-include", "_mingw.h", "-dM", "-E", "-x", "c", os.devnull], check=True,
                            capture_output=True, text=True).stdout
    numbers = dict(line.split()[1:3] for line in macros.splitlines() if "__MINGW64_VERSION_M" in line and line.count(" ") == 2)
    parts = [numbers.get("__MINGW64_VERSION_" + name) for name in ("MAJOR", "MINOR")]
    return ".".join(parts) if all(parts) else "unknown"


def package(name, version, licence, supplier):
    return {
        "SPDXID": "SPDXRef-Package-" + name,
        "name": name,
        "versionInfo": version,
        "supplier": supplier,
        "downloadLocation": "NOASSERTION",
        "filesAnalyzed": False,
        "licenseConcluded": licence,
        "licenseDeclared": licence,
        "copyrightText": "NOASSERTION",
    }


def files_of(folder, left_out):
    for at, folders, names in os.walk(folder):
        folders.sort()
        for name in sorted(names):
            path = os.path.relpath(os.path.join(at, name), folder).replace(os.sep, "/")
            if path != left_out:
                yield path


def file_record(folder, path, number):
    with open(os.path.join(folder, path), "rb") as file:
        content = file.read()
    return {
        "SPDXID": f"SPDXRef-File-{number}",
        "fileName": "./" + path,
        "checksums": [{"algorithm": kind, "checksumValue": hashlib.new(kind.lower(), content).hexdigest()}
                      for kind in ("SHA1", "SHA256")],
        "licenseConcluded": "NOASSERTION",
        "licenseInfoInFiles": ["NOASSERTION"],
        "copyrightText": "NOASSERTION",
    }


def verification_code(files):
    """The sum of all files' sums: what lets a package claim its files."""
    sums = sorted(file["checksums"][0]["checksumValue"] for file in files)
    return hashlib.sha1("".join(sums).encode()).hexdigest()


def bill(folder, version, left_out):
    own = package("dlglib", version, "NOASSERTION", "Organization: Nalbo")
    linked = [package("libstdcxx", said_by(COMPILER, "-dumpfullversion").strip(), GCC_LICENCE, "Organization: GNU"),
              package("libgcc", said_by(COMPILER, "-dumpfullversion").strip(), GCC_LICENCE, "Organization: GNU"),
              package("mingw-w64-runtime", runtime_version(), "LicenseRef-mingw-w64-runtime", "Organization: mingw-w64"),
              package("winpthreads", runtime_version(), "MIT", "Organization: mingw-w64")]
    files = [file_record(folder, path, number) for number, path in enumerate(files_of(folder, left_out), 1)]
    own |= {"filesAnalyzed": True, "licenseInfoFromFiles": ["NOASSERTION"],
            "packageVerificationCode": {"packageVerificationCodeValue": verification_code(files)}}
    relations = [("SPDXRef-DOCUMENT", "DESCRIBES", own["SPDXID"])]
    relations += [(own["SPDXID"], "STATIC_LINK", each["SPDXID"]) for each in linked]
    relations += [(own["SPDXID"], "CONTAINS", each["SPDXID"]) for each in files]
    name = f"dlglib-{version}-win64"
    return {
        "spdxVersion": "SPDX-2.3",
        "dataLicense": "CC0-1.0",
        "SPDXID": "SPDXRef-DOCUMENT",
        "name": name,
        "documentNamespace": "urn:nalbo:corvane:" + name,
        "creationInfo": {"created": created(), "creators": ["Tool: bill_of_materials.py"]},
        "hasExtractedLicensingInfos": [{
            "licenseId": "LicenseRef-mingw-w64-runtime",
            "name": "Run-time library of mingw-w64",
            "extractedText": "Public domain, ZPL-2.1 and BSD parts; see COPYING.MinGW-w64-runtime.txt of mingw-w64.",
        }],
        "packages": [own] + linked,
        "files": files,
        "relationships": [dict(zip(("spdxElementId", "relationshipType", "relatedSpdxElement"), each)) for each in relations],
    }


def created():
    """The time of the build, or the one that is asked for where builds are to be the same."""
    asked = os.environ.get("SOURCE_DATE_EPOCH")
    now = datetime.datetime.now(datetime.timezone.utc)
    when = datetime.datetime.fromtimestamp(int(asked), datetime.timezone.utc) if asked else now
    return when.strftime("%Y-%m-%dT%H:%M:%SZ")


def main():
    folder, version, name = sys.argv[1:]
    with open(os.path.join(folder, name), "w", encoding="utf-8") as file:
        json.dump(bill(folder, version, name), file, ensure_ascii=False, indent=1)
        file.write("\n")


main()
