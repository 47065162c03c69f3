# Makes an HTML page of a chapter: cmake -D CONVERTER=... -D CHAPTER=... -D PAGE=... -P page.cmake
execute_process(COMMAND ${CONVERTER} -e table ${CHAPTER} OUTPUT_VARIABLE BODY COMMAND_ERROR_IS_FATAL ANY)
# Chapters link to each other; what lies elsewhere keeps its name.
string(REGEX REPLACE "href=\"([a-z-]+)\\.md([\"#])" "href=\"\\1.html\\2" BODY "${BODY}")
string(REGEX MATCH "<h1>([^<]*)</h1>" HEADING "${BODY}")
set(TITLE "${CMAKE_MATCH_1}")
set(STYLE [[
:root { color-scheme: light dark; }
body { font: 16px/1.5 "DejaVu Sans", "Segoe UI", sans-serif; max-width: 46em; margin: 1.5em auto; padding: 0 1em; }
h1, h2, h3 { line-height: 1.25; }
h2 { margin-top: 1.8em; border-bottom: 1px solid #8886; }
nav { font-size: 90%; }
a { color: #1a5fb4; }
img { max-width: 100%; border: 1px solid #8886; }
table { border-collapse: collapse; }
th, td { border: 1px solid #8886; padding: 0.25em 0.6em; text-align: left; vertical-align: top; }
code, pre { font-family: "DejaVu Sans Mono", monospace; font-size: 92%; background: #8882; }
code { padding: 0 0.2em; }
pre { padding: 0.6em; overflow-x: auto; }
pre code { padding: 0; background: none; }
blockquote { margin-left: 0; padding-left: 1em; border-left: 4px solid #8886; }
@media (prefers-color-scheme: dark) { a { color: #78aeed; } }
]])
file(WRITE ${PAGE} "<!DOCTYPE html>
<html lang=\"en\">
<head>
<meta charset=\"utf-8\">
<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">
<title>${TITLE}</title>
<style>
${STYLE}</style>
</head>
<body>
<nav><a href=\"index.html\">Strutwright: contents of the manual</a></nav>
${BODY}</body>
</html>
")
