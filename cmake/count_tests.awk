# Adds up test results: reads the JUnit file that CTest wrote and, for each test that is a GoogleTest program, the file of its
# single results in the folder `results`. Prints "<passed> <failed> <skipped>"; skipped is what has said itself that it cannot run
# here. A program that failed without a failed single result
# (crash, time limit, missing file) counts as one failure more.

function attribute(line, name,    parts) {
  if (!match(line, "[ \t]" name "=\"[^\"]*\"")) return ""
  parts = substr(line, RSTART + 1, RLENGTH - 1)
  sub("^" name "=\"", "", parts)
  sub("\"$", "", parts)
  return parts
}

# Sets completed, failures and skipped from one result file; answers whether the file could be read.
function read_results(file,    line, found) {
  completed = failures = skipped = 0
  found = 0
  while ((getline line < file) > 0) {
    if (line ~ /<testsuites /) { failures = attribute(line, "failures") + attribute(line, "errors"); found = 1 }
    if (line ~ /<testcase / && line ~ /result="completed"/) completed++
  }
  close(file)
  return found
}

/<testcase / {
  name = attribute($0, "name")
  status = attribute($0, "status")
  ran++
  undecided = unread = 0
  if (!read_results(results "/" name ".xml")) {
    unread = status == "run"
    if (unread) passed++; else { failed++; undecided = 1 }
    next
  }
  passed += completed - failures
  failed += failures
  if (status != "run" && failures == 0) failed++
}

# A GoogleTest program that ended well by its code and has left no results was ended by somebody else, half-way.
/\[==========\] Running / && unread { passed--; failed++; unread = 0 }

/<skipped message="SKIP_/ && undecided { failed--; skipped++; undecided = 0 }

END {
  if (ran == 0) exit 1
  print passed + 0, failed + 0, skipped + 0
}
