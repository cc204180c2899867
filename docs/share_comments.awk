# Input filter for Doxygen: says in its words what the headers mean. Lines keep their numbers.
#
# The comment at the top of a header describes the header. A comment stands for all declarations that follow it without an empty
# line or another comment; they become a group, which opens on the line before.
function out(line) {
  if (pending != "") print substr(pending, 2)
  pending = "x" line
}
function flush() {
  if (declarations > 1) {
    pending = pending ~ /^x *\/\// ? "x/**@{*/" substr(pending, 2) : pending " /**@{*/"
    lines[held] = lines[held] " /**@}*/"
  }
  for (i = 1; i <= held; ++i) out(lines[i])
  held = declarations = depth = 0
  state = "outside"
}
BEGIN { state = "top" }
state == "top" && /^\/\// { out("/" $0); next }
state == "top" { state = "outside"; if ($0 ~ /^#pragma once/) { out("/// @file"); next } }
{
  comment = $0 ~ /^ *\/\/\// && $0 !~ /^ *\/\/\/</
  ends = $0 ~ /^ *$/ || $0 ~ /^ *\/\// || $0 ~ /^ *}/ || $0 ~ /^ *(public|protected|private):/ || $0 ~ /^#/
  if (state == "declarations" && depth == 0 && ends) flush()
  if (state == "outside" && comment) state = "comment"
  if (state == "comment" && !comment) {
    if (ends) flush()
    else state = "declarations"
  }
  if (state == "outside") { out($0); next }
  lines[++held] = $0
  if (state == "comment") next
  depth += gsub(/[({]/, "&") - gsub(/[)}]/, "&")
  if (depth == 0 && $0 ~ /(;|}) *(\/\/.*)?$/) ++declarations
  # What is inside of a class has comments of its own.
  if (depth > 0 && $0 ~ /^ *(class|struct|enum|union|namespace|template)/) { declarations = 0; flush() }
}
END { flush(); if (pending != "") print substr(pending, 2) }
