# Doxygen's view of a header. Our headers begin with one comment that says what the header is for;
# this moves it to the class (or struct) that bears the file's name, and makes it the file's own
# comment where there is none such. Line numbers up to the class stay as they are.

BEGIN { inside = 1 }

FNR == 1 {
  name = FILENAME
  sub(/.*\//, "", name)
  sub(/\.h$/, "", name)
  class_line = "^(class|struct) (QVCOMMON_API )?" name "( final)?( :|:|$| \\{)"
}

{ line[FNR] = $0 }

inside && /^\/\/\// { head = head $0 "\n"; headLines = FNR; next }

{ inside = 0 }

!target && $0 ~ class_line { target = FNR }

END {
  if (!target && headLines) printf "/// \\file\n%s", head
  for (i = 1; i <= FNR; i++) {
    if (i <= headLines) {
      if (target) print ""
      continue
    }
    if (i == target) printf "%s", head
    print line[i]
  }
}
