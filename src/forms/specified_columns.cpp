#include "forms/specified_columns.h"

namespace velmora {

void addFileColumns(ListView& list) {
    list.setTag("Listed Specified File(s)");
    list.addColumn({"File/Folder(s)", 2400});
    list.addColumn({"Size", 1500, Alignment::right});
    list.addColumn({"File Path Location", 3000});
    for (const char* caption : {"Last Accessed", "Modified", "Created"}) {
        list.addColumn({caption, 2100});
    }
    list.addColumn({"Type", 1200});
}

void addProgramColumns(ListView& list) {
    list.setTag("Listed Specified Program(s)");
    list.addColumn({"Program", 1900});
    list.addColumn({"Action", 1000});
    list.addColumn({"File Path ", 2400});
    list.addColumn({"Type", 1000});
}

}  // namespace velmora
