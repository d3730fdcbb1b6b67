# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT

# Writes OUTPUT, a source file with one function for each NAME=FILE of TEXTS that answers the file's text.
set(source "#include \"embedded.h\"\n\nnamespace corvia {\n")
foreach(pair IN LISTS TEXTS)
    string(REGEX MATCH "^([A-Za-z]+)=(.*)$" matched "${pair}")
    set(name "${CMAKE_MATCH_1}")
    file(READ "${CMAKE_MATCH_2}" text)
    string(APPEND source "\nstd::string ${name}()\n{\n    return R\"CORVIA(${text})CORVIA\";\n}\n")
endforeach()
file(WRITE "${OUTPUT}" "${source}\n} // namespace corvia\n")
