# Writes OUTPUT from TEMPLATE, with the text and the SHA-256 of SCRIPT_FILE and STYLE_FILE:
#   cmake -D SCRIPT_FILE=... -D STYLE_FILE=... -D TEMPLATE=... -D OUTPUT=... -P WriteAssets.cmake
foreach(asset SCRIPT STYLE)
    file(READ "${${asset}_FILE}" ${asset})
    file(SHA256 "${${asset}_FILE}" ${asset}_SHA256)
    cmake_path(GET ${asset}_FILE FILENAME ${asset}_FILE)
endforeach()
configure_file("${TEMPLATE}" "${OUTPUT}" @ONLY)
