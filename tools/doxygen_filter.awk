# Doxygen's view of a header, without a change to its line numbers up to the class.
#
# - A header begins with one comment that says what it is for. It is moved to the class (or struct)
#   that bears the file's name; where there is none such it becomes the file's own comment.
# - A comment belongs to all the declarations that follow it without an empty line between (a getter
#   behind its setter, two overloads): the second and further ones get a copy.

FNR == 1 {
  name = FILENAME
  sub(/.*\//, "", name)
  sub(/\.h$/, "", name)
  classLine = "^(class|struct) (QVCOMMON_API )?" name "( final)?( :|:|$| \\{)"
  inHead = 1
}

{ line[FNR] = $0 }

inHead && /^\/\/\// { head = head $0 "\n"; headLines = FNR; next }

{ inHead = 0 }

!target && $0 ~ classLine { target = FNR }

function depthChange(text,    opened, closed) {
  opened = gsub(/\{/, "{", text)
  closed = gsub(/\}/, "}", text)
  return opened - closed
}

END {
  if (!target && headLines) printf "/// \\file\n%s", head
  comment = ""     # of the group that we stand in
  open = 0         # a declaration goes on from the line before
  depth = 0
  for (i = 1; i <= FNR; i++) {
    text = line[i]
    if (i <= headLines) {
      if (target) print ""
      continue
    }
    if (i == target) printf "%s", head

    if (text ~ /^ *\/\/\//) {
      if (line[i - 1] !~ /^ *\/\/\//) comment = ""
      sub(/^ *\/\/\/ ?/, "", text)
      comment = comment (comment == "" ? "" : " ") text
      groupDepth = depth
      first = 1
    } else if (text ~ /^ *$/ || text ~ /^ *(public|protected|private):/ || text ~ /^ *\/\//) {
      comment = ""
      open = 0
    } else {
      if (comment != "" && !first && !open && depth == groupDepth && comment !~ /    / &&
          text ~ /^ *[A-Za-z_]/) {
        line[i] = "/** " comment " */ " text
      }
      first = 0
      depth += depthChange(text)
      open = text !~ /[;}] *(\/\/.*)?$/
    }
    print line[i]
  }
}
