# The fonts that tests see: those of the set-up and no other, whatever a machine has besides. A font
# package may put its files beside another one's, so the files are linked into folders of our own.

# velmora_fonts(NAME FILE...): a folder with links to the fonts, and a font configuration that knows
# nothing else; ${NAME} is its path, for FONTCONFIG_FILE.
function(velmora_fonts name)
  set(folder ${CMAKE_CURRENT_BINARY_DIR}/fonts/${name})
  file(REMOVE_RECURSE ${folder})
  file(MAKE_DIRECTORY ${folder})
  foreach(font IN LISTS ARGN)
    get_filename_component(file ${font} NAME)
    file(CREATE_LINK ${font} ${folder}/${file} SYMBOLIC)
  endforeach()
  configure_file(support/fonts.conf.in ${folder}.conf @ONLY)
  set(${name} ${folder}.conf PARENT_SCOPE)
endfunction()

# What fonts-liberation and fonts-dejavu-core install.
set(setup_fonts "")
foreach(name
    LiberationSans-Regular LiberationSans-Bold LiberationSans-Italic LiberationSans-BoldItalic
    LiberationSerif-Regular LiberationSerif-Bold LiberationSerif-Italic LiberationSerif-BoldItalic
    LiberationMono-Regular LiberationMono-Bold LiberationMono-Italic LiberationMono-BoldItalic
    DejaVuSans DejaVuSans-Bold DejaVuSansMono DejaVuSansMono-Bold DejaVuSerif DejaVuSerif-Bold)
  file(GLOB font /usr/share/fonts/truetype/*/${name}.ttf)
  if(NOT font)
    message(FATAL_ERROR "The tests need the packages fonts-liberation and fonts-dejavu-core: "
      "there is no ${name}.ttf.")
  endif()
  list(GET font 0 font)
  list(APPEND setup_fonts ${font})
endforeach()

velmora_fonts(VELMORA_TEST_FONTS ${setup_fonts})
set(other_fonts ${setup_fonts})
list(FILTER other_fonts INCLUDE REGEX DejaVu)
velmora_fonts(VELMORA_OTHER_FONTS ${other_fonts})
