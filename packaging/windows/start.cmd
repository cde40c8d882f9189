@echo off
rem Starts the program in a company beside this file, which is made or renewed first.
setlocal
set company=%~dp0company
"%~dp0rovena-install.exe" "%company%" || (pause & exit /b 1)
start "" "%company%\Program Files\meridan\qn\rovena100\system\exe\exe\rovena.exe"
