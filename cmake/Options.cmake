# Réglages de compilation communs à toutes les cibles de la maison.
option(LUMIVIA_ESSAIS "Construire les essais" ON)
set(LUMIVIA_ASSAINISSEURS "" CACHE STRING "Assainisseurs à activer (address,undefined ou thread)")

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)

if(LUMIVIA_ASSAINISSEURS)
  add_compile_options(-fsanitize=${LUMIVIA_ASSAINISSEURS} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${LUMIVIA_ASSAINISSEURS})
endif()

# Une bibliothèque d'un étage : le nom du dossier, ses sources, ce qu'elle utilise.
function(etage nom)
  cmake_parse_arguments(ETAGE "" "" "SOURCES;UTILISE" ${ARGN})
  add_library(${nom} STATIC ${ETAGE_SOURCES})
  target_include_directories(${nom} PUBLIC ${CMAKE_SOURCE_DIR})
  target_link_libraries(${nom} PUBLIC ${ETAGE_UTILISE})
endfunction()
