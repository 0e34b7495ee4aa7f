; What the installer says. Spanish comes first: that is what systems show where neither language is
; the user's.
!insertmacro MUI_LANGUAGE "Spanish"
!insertmacro MUI_LANGUAGE "English"

!macro TEXT NAME SPANISH ENGLISH
  LangString ${NAME} ${LANG_SPANISH} "${SPANISH}"
  LangString ${NAME} ${LANG_ENGLISH} "${ENGLISH}"
!macroend

!insertmacro TEXT UsersTitle "Usuarios" "Users"
!insertmacro TEXT UsersSubtitle "¿Quién usará la biblioteca?" "Who is going to use the library?"
!insertmacro TEXT UsersAll "Todos los usuarios de este equipo, y los servicios" \
  "All users of this computer, and services"
!insertmacro TEXT UsersCurrent "Solo el usuario actual" "The current user only"
!insertmacro TEXT UsersNote "Un programa que se ejecuta como administrador o como servicio solo ve lo que se instala para todos los usuarios." \
  "A program that runs as administrator or as a service only sees what is installed for all users."
!insertmacro TEXT OpenFolder "Abrir la carpeta con guías, ejemplos y simulador" \
  "Open the folder with guides, examples and simulator"

!insertmacro TEXT Done "Listo." "Done."
!insertmacro TEXT Running "Otra instalación o desinstalación de CorvidAPI está en curso. Espere a que termine y pruebe otra vez." \
  "Another installation or removal of CorvidAPI is under way. Wait for its end and try again."
!insertmacro TEXT NoRights "Hacen falta derechos de administrador para todos los usuarios. Sin ellos, instale para el usuario actual (/CurrentUser)." \
  "All users need the rights of an administrator. Without them, install for the current user (/CurrentUser)."
!insertmacro TEXT Newer "Ya está instalada la versión $Version, más nueva que la ${VERSION}. No se cambió nada." \
  "Version $Version is installed, which is newer than ${VERSION}. Nothing was changed."
!insertmacro TEXT ByMsi "CorvidAPI está instalada por el paquete MSI. Desinstálela primero. No se cambió nada." \
  "CorvidAPI is installed by the MSI package. Remove that first. Nothing was changed."
!insertmacro TEXT InUse "Un programa está usando CorvidAPI. Ciérrelo y pruebe otra vez. No se cambió nada. En uso: $Busy" \
  "A program is using CorvidAPI. Close it and try again. Nothing was changed. In use: $Busy"
!insertmacro TEXT NoRoom "No hay espacio suficiente en el disco. No se cambió nada. Carpeta: $Root" \
  "There is not enough room on the disk. Nothing was changed. Folder: $Root"
!insertmacro TEXT NotWritten "No se pudieron escribir los archivos. La instalación anterior, si la hay, sigue como estaba. Carpeta: $Root" \
  "The files could not be written. The installation before this, if any, is as it was. Folder: $Root"
!insertmacro TEXT NotRegistered "No se pudo escribir en el registro de Windows. La instalación anterior, si la hay, sigue como estaba." \
  "The registry of Windows could not be written. The installation before this, if any, is as it was."
