# Puts the settings file into a program's folder unless there is one.
if(NOT EXISTS ${FOLDER}/set.dat)
    file(COPY ${SETTINGS} DESTINATION ${FOLDER})
endif()
