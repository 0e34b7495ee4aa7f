@echo off
rem Registra la biblioteca desde esta carpeta, sin instalarla / registers the library from this folder.
rem
rem   registrar            para todos los usuarios (como administrador) / for all users (as administrator)
rem   registrar usuario    solo para el usuario actual                  / for the current user alone
rem   registrar quitar     lo deshace; "quitar usuario" para el usuario / takes it back
rem
rem La carpeta no debe moverse mientras este registrada. / Keep the folder in its place meanwhile.
setlocal
set options=/s
set result=0
for %%a in (%*) do (
  if /i "%%a"=="quitar" set options=%options% /u
)
for %%a in (%*) do (
  if /i "%%a"=="usuario" call :user
)
rem The library of each bitness is registered by the regsvr32 of that bitness.
if exist "%SystemRoot%\SysWOW64\regsvr32.exe" (
  call :register "%SystemRoot%\System32\regsvr32.exe" x64
  call :register "%SystemRoot%\SysWOW64\regsvr32.exe" x86
) else (
  call :register "%SystemRoot%\System32\regsvr32.exe" x86
)
exit /b %result%

:user
set options=%options% /n /i:user
exit /b

:register
%1 %options% "%~dp0%2\CorvidAPI.dll"
if errorlevel 1 (
  echo %2: regsvr32 %errorlevel%
  set result=1
) else (
  echo %2: bien / done
)
exit /b
