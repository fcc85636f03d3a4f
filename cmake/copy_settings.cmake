# Puts the settings file SETTINGS into a program's FOLDER unless there is one.
if(NOT EXISTS "${FOLDER}/set.dat")
    file(COPY "${SETTINGS}" DESTINATION "${FOLDER}")
endif()
