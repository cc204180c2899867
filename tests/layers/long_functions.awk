# Prints each function of more than `limit` lines as file:line: text. Braces are counted outside strings and comments; a block
# counts as a function when a parameter list stands in front of it, and as a table when "=" or "return" does.
FNR == 1 {
  depth = 0
  head = ""
}
{
  line = $0
  gsub(/\\./, "", line)
  gsub(/"[^"]*"/, "", line)
  gsub(/'[^']*'/, "", line)
  sub(/\/\/.*/, "", line)
  if (line ~ /^[ \t]*#/) next
  for (i = 1; i <= length(line); ++i) {
    letter = substr(line, i, 1)
    if (letter == "{") {
      ++depth
      first[depth] = FNR
      before[depth] = head
      head = ""
    } else if (letter == "}") {
      lines = FNR - first[depth] + 1
      if (depth > 0 && lines > limit && before[depth] ~ /\)/ && before[depth] !~ /(=|return)[ \t]*$/)
        print FILENAME ":" first[depth] ": " lines " lines:" before[depth]
      if (depth > 0) --depth
      head = ""
    } else {
      head = letter == ";" ? "" : head letter
    }
  }
  head = head " "
}
