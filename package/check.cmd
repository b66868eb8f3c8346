@echo off
rem Says for each kind of Excel that this system can run whether its macros find Pellora.
rem The window stays for a while when a double-click has opened it; /quiet leaves that out.
setlocal
set "native=%SystemRoot%\System32"
if defined PROCESSOR_ARCHITEW6432 set "native=%SystemRoot%\Sysnative"
set "wide="
if /i "%PROCESSOR_ARCHITECTURE%"=="AMD64" set "wide=yes"
if /i "%PROCESSOR_ARCHITEW6432%"=="AMD64" set "wide=yes"
set "narrow=%SystemRoot%\SysWOW64"
if not exist "%narrow%\cscript.exe" set "narrow="
if not defined wide if not defined narrow set "narrow=%native%"

set "bad=0"
if defined wide "%native%\cscript.exe" //nologo "%~dp0check.vbs" 64-bit
if defined wide if errorlevel 1 set "bad=1"
if defined narrow "%narrow%\cscript.exe" //nologo "%~dp0check.vbs" 32-bit
if defined narrow if errorlevel 1 set "bad=1"
if not defined narrow echo 32-bit: this system runs no 32-bit programs.
if not defined wide echo 64-bit: this system runs no 64-bit programs.
if /i not "%~1"=="/quiet" "%native%\timeout.exe" /t 20 2>nul
exit /b %bad%
