# Makes the C forms of the message list zqsystem.msg:
#   awk -v form=header -f messages.awk zqsystem.msg    the named constants, zqxml/messages.h
#   awk -v form=table -f messages.awk zqsystem.msg     rows of {number, name, text, cause, cure}

function quoted(text) {
  gsub(/\\/, "\\\\", text)
  gsub(/"/, "\\\"", text)
  return "\"" text "\""
}

BEGIN {
  if (form == "header") {
    print "/**"
    print " * @file"
    print " * The numbers of the messages that the library gives. Made from catalog/zqsystem.msg; their texts lie in the"
    print " * message catalog zqsystem.cat and come with each status record."
    print " */"
    print "#ifndef ZQXML_MESSAGES_H"
    print "#define ZQXML_MESSAGES_H\n"
    print "/** A message number of the library, as it stands in ZQStatusStruct::messageNum. */"
    print "enum ZQMessage {"
  }
}

/^\$ name /  { name = substr($0, 8) }
/^\$ cause / { cause = substr($0, 9) }
/^\$ cure /  { cure = substr($0, 8) }

/^[0-9]/ {
  number = $1
  text = substr($0, length(number) + 2)
  if (name == "" || cause == "" || cure == "" || length(text) > 255) {
    print FILENAME ":" FNR ": message " number " needs a name, a cause, a cure and at most 255 bytes of text" > "/dev/stderr"
    exit 1
  }
  if (form == "header") {
    printf "%s    ZQ_MESSAGE_%s = %s /**< %s */", (count++ ? ",\n" : ""), name, number, text
  } else {
    printf "{%s, %s, %s, %s, %s},\n", number, quoted(name), quoted(text), quoted(cause), quoted(cure)
  }
  name = cause = cure = ""
}

END {
  if (form == "header") {
    print "\n};\n"
    print "#endif"
  }
}
