# Puts the pictures of data/icons and the sounds of data/sounds into a target as one generated source, so that the
# program is one file. What it defines is declared in src/view/embedded.h. The source is made anew at build time when a
# picture, a sound or the table changes. To be called in the folder that defines the target.
set(TIDVANE_EMBED_SCRIPT ${CMAKE_CURRENT_LIST_DIR}/embed.cmake)

function(tidvane_embed_icons target)
  file(GLOB files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/icons/*.svg ${PROJECT_SOURCE_DIR}/data/sounds/*.wav)
  set(generated ${CMAKE_CURRENT_BINARY_DIR}/embedded.cpp)
  add_custom_command(
    OUTPUT ${generated}
    COMMAND ${CMAKE_COMMAND} -D DATA=${PROJECT_SOURCE_DIR}/data -D OUTPUT=${generated} -P ${TIDVANE_EMBED_SCRIPT}
    DEPENDS ${files} ${PROJECT_SOURCE_DIR}/data/icons/icons.tsv ${TIDVANE_EMBED_SCRIPT}
    COMMENT "Embedding the pictures and sounds"
    VERBATIM)
  target_sources(${target} PRIVATE ${generated})
endfunction()
