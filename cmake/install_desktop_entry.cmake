# Installs the desktop entry ENTRY into the folder APPLICATIONS, so that it starts PROGRAM: what is
# installed lies in no folder of the search path.
file(READ "${ENTRY}" entry)
# As within quotes of a desktop entry, and "%" begins a field there.
set(quoted "${PROGRAM}")
string(REPLACE "\\" "\\\\\\\\" quoted "${quoted}")
foreach(special [["]] "`" "$")
    string(REPLACE "${special}" "\\\\${special}" quoted "${quoted}")
endforeach()
string(REPLACE "%" "%%" quoted "${quoted}")
string(REPLACE "Exec=velmora " "Exec=\"${quoted}\" " entry "${entry}")
file(MAKE_DIRECTORY "${APPLICATIONS}")
file(WRITE "${APPLICATIONS}/velmora.desktop" "${entry}")
