" Comments, and :make to check the file that is open.
if exists("b:did_ftplugin")
  finish
endif
let b:did_ftplugin = 1

setlocal comments=:' commentstring='\ %s
setlocal makeprg=mcr\ check\ %:S
setlocal errorformat=%f:%l:\ %tarning:\ %m,%f:%l:\ %m
let b:undo_ftplugin = "setlocal comments< commentstring< makeprg< errorformat<"
