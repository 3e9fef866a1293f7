# find_package(NoggleSdk 1): what a game is made of.
#
#   NoggleSdk::Contract   the headers of the contract, "sdk/CGameArea.h" and its two neighbours
#   NoggleSdk::Controls   the skinned controls, "sdk/controls/..."; brings the contract along
#   NoggleSdk::Author     helpers for authors, "sdk/author/..."; brings both along
#   noggle_game(), noggle_component()   lay out a game's folder, told in NoggleGame.cmake
include(CMakeFindDependencyMacro)
find_dependency(Qt6 6.4 COMPONENTS Core Gui Widgets)
include(${CMAKE_CURRENT_LIST_DIR}/NoggleSdkTargets.cmake)
include(${CMAKE_CURRENT_LIST_DIR}/NoggleGame.cmake)
