# Le paquet de l'application, de même forme sur Mac et sur le Mac simulé.
file(STRINGS "${CMAKE_SOURCE_DIR}/plateforme/identite.hpp" ligne REGEX "kIdentifiantPaquet")
string(REGEX REPLACE ".*\"([^\"]+)\".*" "\\1" LUMIVIA_IDENTIFIANT "${ligne}")
set(LUMIVIA_VERSION "${PROJECT_VERSION}")
set(LUMIVIA_PAQUET "${CMAKE_BINARY_DIR}/Assistant Lumivia.app")

configure_file("${CMAKE_SOURCE_DIR}/paquet/Info.plist.in" "${CMAKE_BINARY_DIR}/Info.plist" @ONLY)

# Fait de la cible `programme` l'exécutable du paquet. `bibliotheque` (facultative) : la cible de la
# bibliothèque D2XX à poser dans Frameworks.
function(paquet_du_mac_simule programme bibliotheque)
  file(GLOB images CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/resources/*.png")
  set(contenu "${LUMIVIA_PAQUET}/Contents")
  set_target_properties(${programme} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${contenu}/MacOS")
  add_custom_target(paquet_simule ALL
    COMMAND ${CMAKE_COMMAND} -E make_directory "${contenu}/Resources" "${contenu}/Frameworks"
    COMMAND ${CMAKE_COMMAND} -E copy_if_different "${CMAKE_BINARY_DIR}/Info.plist" "${contenu}/"
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${images}
            "${CMAKE_SOURCE_DIR}/paquet/AssistantLumivia.icns" "${contenu}/Resources/"
    COMMAND ${CMAKE_COMMAND} -E copy_if_different "$<TARGET_FILE:${bibliotheque}>"
            "${contenu}/Frameworks/libftd2xx.dylib"
    DEPENDS ${programme} ${bibliotheque}
    COMMENT "Paquet de l'assistant"
    VERBATIM)
endfunction()
