# Makes AppStream's list of releases from CHANGELOG.md: a heading "## VERSION (DATE)" for each, then
# one point for each change. A release that is still to come is dated `today`.
function Escaped(text) {
  gsub(/&/, "\\&amp;", text)
  gsub(/</, "\\&lt;", text)
  gsub(/>/, "\\&gt;", text)
  while (match(text, /`[^`]*`/))
    text = substr(text, 1, RSTART - 1) "<code>" substr(text, RSTART + 1, RLENGTH - 2) "</code>" \
           substr(text, RSTART + RLENGTH)
  return text
}

function EndPoint() {
  if (point != "") print "          <li>" Escaped(point) "</li>"
  point = ""
}

function EndRelease() {
  EndPoint()
  if (open) print "        </ul>\n      </description>\n    </release>"
  open = 0
}

/^## / {
  EndRelease()
  date = $3
  gsub(/[()]/, "", date)
  type = date == "unreleased" ? "development" : "stable"
  if (date == "unreleased") date = today
  print "    <release version=\"" $2 "\" date=\"" date "\" type=\"" type "\">"
  print "      <description>\n        <ul>"
  open = 1
}
open && /^- / { EndPoint(); point = substr($0, 3) }
open && /^  / { point = point " " substr($0, 3) }
END { EndRelease() }
