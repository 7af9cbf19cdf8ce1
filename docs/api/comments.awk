# Doxygen reads the headers through this: what stands in them as plain comments becomes comments of
# Doxygen's, line for line. A comment after a declaration belongs to that declaration; lines that
# are set in are shown as they stand.

# `text` with what Doxygen and Markdown would take for markup made plain, but for `code`.
function plain(text,    parts, count, i) {
  count = split(text, parts, "`")
  for (i = 1; i <= count; i += 2) { gsub(/[\\@#%<>*~|&]/, "\\\\&", parts[i]) }
  text = parts[1]
  for (i = 2; i <= count; ++i) { text = text "`" parts[i] }
  return text
}

# Ends the lines that are set in, whose last is held back for it.
function release(ending) {
  if (held != "") { print held ending; held = "" }
}

/^ *\/\/($| )/ && behind && match($0, /\/\//) == behind {  # goes on with the comment after a line
  print substr($0, 1, behind - 1) "///< " plain(substr($0, behind + 3))
  next
}

{ behind = 0 }

/[^ ] +\/\* .*\*\/$/ { sub(/\/\* /, "/**< ") }  # in headers that are C, too

/^ *\/\/   / {
  indent = $0; sub(/\/\/.*/, "", indent)
  text = $0; sub(/^ *\/\/ /, "", text)
  if (!inset) {
    release(held ~ /\/ *$/ ? " \\code{.cpp}" : " \\code{.unparsed}")
    inset = 1
  } else {
    release("")
  }
  held = indent "/// " text
  next
}

/^ *\/\/($| )/ {
  release(inset ? " \\endcode" : "")
  inset = 0
  indent = $0; sub(/\/\/.*/, "", indent)
  text = $0; sub(/^ *\/\/ ?/, "", text)
  held = indent "/// " plain(text)
  next
}

{
  release(inset ? " \\endcode" : "")
  inset = 0
  if (match($0, /[;,{] +\/\/ /)) {
    behind = RSTART + RLENGTH - 3
    print substr($0, 1, behind - 1) "///< " plain(substr($0, behind + 3))
    next
  }
  print
}

END { release(inset ? " \\endcode" : "") }
