# Every compiler flag of our own code, once.

add_library(kolibri_flags INTERFACE)
target_compile_definitions(kolibri_flags INTERFACE
  QT_NO_CAST_FROM_ASCII # each text is a checked UTF-16 literal, so no umlaut is lost on the way
  QT_NO_CAST_TO_ASCII
  QT_NO_URL_CAST_FROM_STRING
  QT_NO_FOREACH
  QT_NO_KEYWORDS
  QT_DISABLE_DEPRECATED_BEFORE=0x060400
  KOLIBRI_VERSION="${PROJECT_VERSION}")
if(MSVC)
  target_compile_options(kolibri_flags INTERFACE /utf-8 /W4 $<$<BOOL:${KOLIBRI_WERROR}>:/WX>)
else()
  target_compile_options(kolibri_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wold-style-cast -Woverloaded-virtual -Wnon-virtual-dtor
    $<$<BOOL:${KOLIBRI_WERROR}>:-Werror>)
  if(KOLIBRI_SANITIZE)
    target_compile_options(kolibri_flags INTERFACE
      -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer -O1 -g1)
    target_link_options(kolibri_flags INTERFACE -fsanitize=address,undefined)
  endif()
endif()
