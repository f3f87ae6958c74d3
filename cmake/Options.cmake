# Réglages de compilation communs à toutes les cibles de la maison.
option(LUMIVIA_ESSAIS "Construire les essais" ON)
set(LUMIVIA_ASSAINISSEURS "" CACHE STRING "Assainisseurs à activer (address,undefined ou thread)")

add_compile_options(-Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
if(APPLE)
  # Un appel plus récent que la première version de macOS visée est refusé.
  add_compile_options(-Wunguarded-availability)
  # Ce qui se livre n'a ni code mort, ni symbole interne, ni chemin.
  add_link_options($<$<CONFIG:Release>:LINKER:-dead_strip,-x,-S>)
endif()

if(LUMIVIA_ASSAINISSEURS)
  add_compile_options(-fsanitize=${LUMIVIA_ASSAINISSEURS} -fno-omit-frame-pointer
                      -fno-sanitize-recover=all)
  add_link_options(-fsanitize=${LUMIVIA_ASSAINISSEURS})
endif()

# Une bibliothèque d'un étage : le nom du dossier, ses sources, les étages qu'elle utilise et laisse
# voir à qui l'utilise, et ce qu'elle est seule à voir.
function(etage nom)
  cmake_parse_arguments(ETAGE "" "" "SOURCES;UTILISE;REGARDE" ${ARGN})
  add_library(${nom} STATIC ${ETAGE_SOURCES})
  target_include_directories(${nom} PUBLIC ${CMAKE_SOURCE_DIR})
  target_link_libraries(${nom} PUBLIC ${ETAGE_UTILISE} PRIVATE ${ETAGE_REGARDE})
endfunction()
