VERSION 5.00
Begin VB.Form frmMain 
   Begin VB.Label lblLine0x 
   End
   Begin VB.Label lblLine1x 
   End
   Begin VB.Label lblLine2x 
   End
   Begin VB.Label lblLine3x 
   End
   Begin VB.Label lblLine4x 
   End
   Begin VB.Label lblLine5x 
   End
   Begin VB.Label lblLine6x 
   End
   Begin VB.Label lblLine7x 
   End
   Begin VB.Label lblLine8x 
   End
   Begin VB.Label lblLine9x 
   End
   Begin VB.Label lblLine10x 
   End
   Begin VB.Label lblLine11x 
   End
   Begin VB.Label lblLine12x 
   End
   Begin VB.Label lblLine13x 
   End
   Begin VB.Label lblLine14x 
   End
   Begin VB.Label lblLine15x 
   End
   Begin VB.Label lblLine16x 
   End
   Begin VB.Label lblLine17x 
   End
   Begin VB.Label lblLine18x 
   End
   Begin VB.Label lblLine19x 
   End
   Begin VB.Label lblLine20x 
   End
   Begin VB.Label lblLine21x 
   End
   Begin VB.Label lblLine22x 
   End
   Begin VB.Label lblLine23x 
   End
   Begin VB.Label lblLine24x 
   End
   Begin VB.Label lblLine25x 
   End
   Begin VB.Label lblLine26x 
   End
   Begin VB.Label lblLine27x 
   End
   Begin VB.Label lblLine28x 
   End
   Begin VB.Label lblLine29x 
   End
   Begin VB.Label lblLine30x 
   End
   Begin VB.Label lblLine31x 
   End
   Begin VB.Label lblLine32x 
   End
   Begin VB.Label lblLine33x 
   End
   Begin VB.Label lblLine34x 
   End
   Begin VB.Label lblLine35x 
   End
   Begin VB.Label lblLine36x 
   End
   Begin VB.Label lblLine37x 
   End
   Begin VB.Label lblLine38x 
   End
   Begin VB.Label lblLine39x 
   End
   Begin VB.Label lblLine40x 
   End
   Begin VB.Label lblLine41x 
   End
   Begin VB.Label lblLine42x 
   End
   Begin VB.Label lblLine43x 
   End
   Begin VB.Label lblLine44x 
   End
   Begin VB.Label lblLine45x 
   End
   Begin VB.Label lblLine46x 
   End
   Begin VB.Label lblLine47x 
   End
   Begin VB.Label lblLine48x 
   End
   Begin VB.Label lblLine49x 
   End
   Begin VB.Label lblLine50x 
   End
   Begin VB.Label lblLine51x 
   End
   Begin VB.Label lblLine52x 
   End
   Begin VB.Label lblLine53x 
   End
   Begin VB.Label lblLine54x 
   End
   Begin VB.Label lblLine55x 
   End
   Begin VB.Label lblLine56x 
   End
   Begin VB.Label lblLine57x 
   End
   Begin VB.Label lblLine58x 
   End
   Begin VB.Label lblLine59x 
   End
   Begin VB.Label lblLine60x 
   End
   Begin VB.Label lblLine61x 
   End
   Begin VB.Label lblLine62x 
   End
   Begin VB.Label lblLine63x 
   End
   Begin VB.Label lblLine64x 
   End
   Begin VB.Label lblLine65x 
   End
   Begin VB.Label lblLine66x 
   End
   Begin VB.Label lblLine67x 
   End
   Begin VB.Label lblLine68x 
   End
   Begin VB.Label lblLine69x 
   End
   Begin VB.Label lblLine70x 
   End
   Begin VB.Label lblLine71x 
   End
   Begin VB.Label lblLine72x 
   End
   Begin VB.Label lblLine73x 
   End
   Begin VB.Label lblLine74x 
   End
   Begin VB.Label lblLine75x 
   End
   Begin VB.Label lblLine76x 
   End
   Begin VB.Label lblLine77x 
   End
   Begin VB.Label lblLine78x 
   End
   Begin VB.Label lblLine79x 
   End
   Begin VB.Label lblLine80x 
   End
   Begin VB.Label lblLine81x 
   End
   Begin VB.Label lblLine82x 
   End
   Begin VB.Label lblLine83x 
   End
   Begin VB.Label lblLine84x 
   End
   Begin VB.Label lblLine85x 
   End
   Begin VB.Label lblLine86x 
   End
   Begin VB.Label lblLine87x 
   End
   Begin VB.Label lblLine88x 
   End
   Begin VB.Label lblLine89x 
   End
   Begin VB.Label lblLine90x 
   End
   Begin VB.Label lblLine91x 
   End
   Begin VB.Label lblLine92x 
   End
   Begin VB.Label lblLine93x 
   End
   Begin VB.Label lblLine94x 
   End
   Begin VB.Label lblLine95x 
   End
   Begin VB.Label lblLine96x 
   End
   Begin VB.Label lblLine97x 
   End
   Begin VB.Label lblLine98x 
   End
   Begin VB.Label lblLine99x 
   End
   Begin VB.Label lblLine100x 
   End
   Begin VB.Label lblLine101x 
   End
   Begin VB.Label lblLine102x 
   End
   Begin VB.Label lblLine103x 
   End
   Begin VB.Label lblLine104x 
   End
   Begin VB.Label lblLine105x 
   End
   Begin VB.Label lblLine106x 
   End
   Begin VB.Label lblLine107x 
   End
   Begin VB.Label lblLine108x 
   End
   Begin VB.Label lblLine109x 
   End
   Begin VB.Label lblLine110x 
   End
   Begin VB.Label lblLine111x 
   End
   Begin VB.Label lblLine112x 
   End
   Begin VB.Label lblLine113x 
   End
   Begin VB.Label lblLine114x 
   End
   Begin VB.Label lblLine115x 
   End
   Begin VB.Label lblLine116x 
   End
   Begin VB.Label lblLine117x 
   End
   Begin VB.Label lblLine118x 
   End
   Begin VB.Label lblLine119x 
   End
End
Attribute VB_Name = "frmMain"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
